#pragma once

#include "mapi/MailSession.h"
#include "mapi/SimpleMapi.h"

#include <memory>

namespace turnpost {

/// A session with the desktop's mail client through Simple MAPI. Closed at the latest when the
/// object goes.
class SimpleMapiSession final : public MailSession {
  public:
    explicit SimpleMapiSession(std::shared_ptr<SimpleMapi> simpleMapi)
        : mapi(std::move(simpleMapi)) {}
    SimpleMapiSession(const SimpleMapiSession&) = delete;
    SimpleMapiSession& operator=(const SimpleMapiSession&) = delete;
    ~SimpleMapiSession() override { mapi->logoff(session); }

    void NewSession(bool wanted) override { set(MAPI_NEW_SESSION, wanted); }
    void LogonUI(bool wanted) override { set(MAPI_LOGON_UI, wanted); }
    void DownLoadMail(bool wanted) override { set(MAPI_FORCE_DOWNLOAD, wanted); }
    void UserName(const std::string& name) override { profile = name; }
    void Password(const std::string& text) override { password = text; }
    void ParentWindow(std::uintptr_t window) override { mapi->setParentWindow(window); }
    void SignOn() override;
    long SessionID() const override { return session; }
    std::optional<Refusal> signOnRefusal() const override { return refusal; }
    void SignOff() override;

  private:
    void set(FLAGS flag, bool wanted) { flags = wanted ? flags | flag : flags & ~flag; }

    std::shared_ptr<SimpleMapi> mapi;
    FLAGS flags = 0;
    std::string profile;
    std::string password;
    std::optional<Refusal> refusal;
    long session = 0;
};

} // namespace turnpost
