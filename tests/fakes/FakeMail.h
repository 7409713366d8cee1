#pragma once

#include "mapi/ComposedMessage.h"
#include "mapi/MailSystem.h"

#include <functional>
#include <vector>

namespace turnpost {

/// Both objects of a mail system in one. Records the calls of the session, and each message as it
/// is when it is sent.
class FakeMail final : public MailSession, public ComposedMessage {
  public:
    using Record = std::vector<std::string>;

    explicit FakeMail(Record& record) : calls_(record) {}

    long openSession = 42;
    std::function<std::optional<Refusal>()> inSend = [] { return std::nullopt; };

    void NewSession(bool wanted) override { note("NewSession", wanted); }
    void LogonUI(bool wanted) override { note("LogonUI", wanted); }
    void DownLoadMail(bool wanted) override { note("DownLoadMail", wanted); }
    void UserName(const std::string& name) override { calls_.push_back("UserName " + name); }
    void Password(const std::string& word) override { calls_.push_back("Password " + word); }
    void SignOn() override { calls_.emplace_back("SignOn"); }
    using ComposedMessage::SessionID;
    long SessionID() const override { return openSession; }
    void SignOff() override { calls_.emplace_back("SignOff"); }

    std::optional<Refusal> Send() override {
        note("Send", sessionId);
        calls_.push_back(subject + "|" + noteText);
        for (const MailAttachment& file : attachments) {
            note(file.AttachmentPathName, file.AttachmentPosition);
        }
        for (const MailRecipient& to : recipients) {
            note(to.RecipDisplayName, to.RecipType);
            calls_.push_back("Address " + to.RecipAddress);
        }
        return inSend();
    }

  private:
    void note(const std::string& member, long value) {
        calls_.push_back(member + " " + std::to_string(value));
    }

    Record& calls_;
};

/// A mail system with one record. `messages` is then its part that sends.
inline MailSystem fakeMailSystem(FakeMail::Record& record, FakeMail*& messages) {
    auto owned = std::make_unique<FakeMail>(record);
    messages = owned.get();
    return {std::make_unique<FakeMail>(record), std::move(owned)};
}

} // namespace turnpost
