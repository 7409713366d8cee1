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
    /// Both references must outlive it. The sender is taken from `settings` at each message.
    /// A program that takes longer than `timeout`, and a second more for each 10 KB of the message,
    /// is ended: a slow line is no hang.
    SendmailMessages(const Settings& settings, const SendmailSession& session,
                     std::chrono::milliseconds timeout = std::chrono::seconds(60));

    /// Reads every attachment once. Gives the program's own words where it refuses; an address
    /// that is not one address or has no ASCII domain, and a file that can't be read, are refused
    /// without it.
    std::optional<Refusal> Send() override;

  private:
    std::optional<Refusal> takeAddresses();
    MimeMessage message() const;
    std::vector<std::string> arguments() const;

    const Settings& settings_;
    const SendmailSession& session_;
    std::chrono::milliseconds limit_;
    // The host's, empty when there is none.
    std::string sender_;
};

} // namespace turnpost
