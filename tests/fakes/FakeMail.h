#pragma once

#include "mapi/MailMessages.h"
#include "mapi/MailSession.h"

#include <functional>
#include <vector>

namespace turnpost {

/// Both objects of a mail system in one. Writes down what it is told, member by member.
class FakeMail final : public MailSession, public MailMessages {
  public:
    using Record = std::vector<std::string>;

    explicit FakeMail(Record& record) : calls(record) {}

    long sessionId = 42;
    std::function<std::optional<std::string>()> inSend = [] { return std::nullopt; };

    void NewSession(bool wanted) override { note("NewSession", int{wanted}); }
    void LogonUI(bool wanted) override { note("LogonUI", int{wanted}); }
    void DownLoadMail(bool wanted) override { note("DownLoadMail", int{wanted}); }
    void UserName(const std::string& name) override { calls.push_back("UserName " + name); }
    void Password(const std::string& word) override { calls.push_back("Password " + word); }
    void SignOn() override { calls.emplace_back("SignOn"); }
    long SessionID() const override { return sessionId; }
    void SignOff() override { calls.emplace_back("SignOff"); }

    void SessionID(long id) override { note("SessionID", id); }
    void Compose() override { calls.emplace_back("Compose"); }
    void MsgIndex(int index) override { note("MsgIndex", index); }
    void MsgSubject(const std::string& text) override { calls.push_back("MsgSubject " + text); }
    void MsgNoteText(const std::string& text) override { calls.push_back("MsgNoteText " + text); }
    void RecipIndex(int index) override { note("RecipIndex", index); }
    void RecipDisplayName(const std::string& name) override { calls.push_back("Name " + name); }
    void RecipAddress(const std::string& text) override { calls.push_back("Address " + text); }
    void RecipType(int type) override { note("RecipType", type); }
    void AttachmentIndex(int index) override { note("AttachmentIndex", index); }
    void AttachmentPosition(int place) override { note("AttachmentPosition", place); }
    void AttachmentType(int type) override { note("AttachmentType", type); }
    void AttachmentPathName(const std::string& path) override { calls.push_back("Path " + path); }
    std::optional<std::string> Send() override {
        calls.emplace_back("Send");
        return inSend();
    }

  private:
    void note(const std::string& member, long value) {
        calls.push_back(member + " " + std::to_string(value));
    }

    Record& calls;
};

} // namespace turnpost
