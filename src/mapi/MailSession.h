#pragma once

#include <string>

namespace turnpost {

/// A session with the desktop's mail system, with the members of the Simple MAPI session component.
/// No member shows a window to the person.
class MailSession {
  public:
    virtual ~MailSession() = default;

    /// False uses an existing shared session where there is one.
    virtual void NewSession(bool wanted) = 0;
    /// False shows no log-on dialog.
    virtual void LogonUI(bool wanted) = 0;
    /// False fetches no new mail at sign-on.
    virtual void DownLoadMail(bool wanted) = 0;
    /// Empty texts stand for the mail system's default profile.
    virtual void UserName(const std::string& name) = 0;
    virtual void Password(const std::string& password) = 0;

    /// Opens the session; SessionID tells whether it worked.
    virtual void SignOn() = 0;
    /// The open session's identifier; 0 means no session: there is no mail system, or it refused.
    virtual long SessionID() const = 0;
    /// Closes the session.
    virtual void SignOff() = 0;
};

} // namespace turnpost
