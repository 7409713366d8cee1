#pragma once

#include <QProcess>
#include <QTemporaryDir>
#include <string>
#include <vector>

namespace turnpost::desk {

/// A message as a mail server stored it; line ends LF.
struct StoredMail {
    /// Where the server says that it went.
    std::string recipient;
    /// The lines From, To, CC and Subject, one blank after each colon.
    std::string head;
    /// The text outside of the blocks, without line ends at its end.
    std::string text;
    /// UUencoded, from "begin" to "end".
    std::vector<std::string> blocks;
};

/// A real mail server that stores what it accepts in a maildir: the one that TURNPOST_SERVER
/// ("127.0.0.1:port") and TURNPOST_MAILBOX (the maildir) name, else a process of its own on a free
/// port.
class MailServer {
  public:
    /// Throws when it does not come up.
    MailServer();
    MailServer(const MailServer&) = delete;
    MailServer& operator=(const MailServer&) = delete;
    ~MailServer();

    /// As the host would enter it.
    const std::string& address() const { return serverAddress; }

    /// Waits until this many messages are stored, but not for ever, then takes all there are out of
    /// the maildir.
    std::vector<StoredMail> take(int expected) const;

  private:
    QTemporaryDir folder;
    QProcess process;
    std::string serverAddress = qEnvironmentVariable("TURNPOST_SERVER").toStdString();
    QString mailbox = qEnvironmentVariable("TURNPOST_MAILBOX", folder.filePath("mail"));
};

} // namespace turnpost::desk
