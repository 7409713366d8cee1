#pragma once

#include "mapi/MailSession.h"

#include <string>
#include <vector>

namespace turnpost {

/// Where the sendmail program is looked for: /usr/sbin, /usr/lib, then the absolute paths in PATH.
std::vector<std::string> sendmailFolders();

/// The session on systems where mail is submitted through the program `sendmail`. It needs no
/// profile and no password; being signed on means that the program was found.
class SendmailSession : public MailSession {
  public:
    explicit SendmailSession(std::vector<std::string> folders = sendmailFolders());

    void NewSession(bool) override {}
    void LogonUI(bool) override {}
    void DownLoadMail(bool) override {}
    void UserName(const std::string&) override {}
    void Password(const std::string&) override {}
    /// Uses the first folder that holds an executable file named `sendmail`.
    void SignOn() override;
    long SessionID() const override;
    void SignOff() override;

    /// Full path of the program; empty without a session.
    const std::string& program() const { return path_; }

  private:
    std::vector<std::string> folders_;
    std::string path_;
};

} // namespace turnpost
