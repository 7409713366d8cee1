#pragma once

#include "text/Refusal.h"

#include <cstdint>
#include <optional>
#include <string>

namespace turnpost {

/// A session with the desktop's mail system, with the members of the Simple MAPI session component.
/// No member shows a window, but a mail client may show one of its own.
class MailSession {
  public:
    virtual ~MailSession() = default;

    /// False uses an existing shared session if there is one.
    virtual void NewSession(bool wanted) = 0;
    /// False shows no log-on dialog.
    virtual void LogonUI(bool wanted) = 0;
    /// False fetches no new mail at sign-on.
    virtual void DownLoadMail(bool wanted) = 0;
    /// Empty texts stand for the mail system's default profile.
    virtual void UserName(const std::string& name) = 0;
    virtual void Password(const std::string& password) = 0;
    /// Native id of the window that owns the mail system's own dialogs; 0 for none. Ignored by a
    /// mail system without dialogs.
    virtual void ParentWindow(std::uintptr_t) {}

    /// Opens the session; SessionID tells whether it worked.
    virtual void SignOn() = 0;
    /// The open session's identifier; 0 when there is no mail system or it refused the session.
    virtual long SessionID() const = 0;
    /// Why the mail system refused the last SignOn; nothing when there is no mail system.
    virtual std::optional<Refusal> signOnRefusal() const { return std::nullopt; }
    /// Closes the session.
    virtual void SignOff() = 0;
};

} // namespace turnpost
