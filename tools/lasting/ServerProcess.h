#pragma once

#include <QProcess>
#include <string>

namespace turnpost::lasting {

/// The TurnServer in a process of its own, so that only the client is measured.
class ServerProcess final {
  public:
    /// Starts this program as the server; throws when it does not come up.
    ServerProcess();
    ServerProcess(const ServerProcess&) = delete;
    ServerProcess& operator=(const ServerProcess&) = delete;
    ~ServerProcess();

    /// "127.0.0.1:port".
    const std::string& address() const { return serverAddress; }

    /// Throws when the last send was not delivered to every player, each with the right file.
    void checkSend();

  private:
    std::string nextLine();

    QProcess process;
    std::string serverAddress;
};

} // namespace turnpost::lasting
