#pragma once

#include "mapi/ComposedMessage.h"
#include "mapi/MimeMessage.h"
#include "mapi/SendmailSession.h"
#include "storage/Settings.h"

#include <chrono>

namespace turnpost {

/// Submits messages through the program that the session has found.
class SendmailMessages : public ComposedMessage {
  public:
    /// Both references must outlive this object. The sender is read from `settings` for each
    /// message. A program that takes longer than `timeout` and one second for each 10 KB of the
    /// message is killed; the extra time is for slow connections.
    SendmailMessages(const Settings& settings, const SendmailSession& session,
                     std::chrono::milliseconds timeout = std::chrono::seconds(60));

    /// Reads every attachment once. A refusal by the program has the program's words. The program
    /// is not started when an address is not exactly one address, has no ASCII domain or has a bad
    /// character, or when a file cannot be read.
    std::optional<Refusal> Send() override;

  private:
    std::optional<Refusal> takeAddresses();
    MimeMessage message() const;
    std::vector<std::string> arguments() const;

    const Settings& settings_;
    const SendmailSession& session_;
    std::chrono::milliseconds limit_;
    // The host's address; empty for none.
    std::string sender_;
};

} // namespace turnpost
