#pragma once

#include "mapi/MailSession.h"
#include "mapi/SimpleMapi.h"

#include <memory>

namespace turnpost {

/// A session with the desktop's mail client through Simple MAPI. The destructor closes it if it is
/// still open.
class SimpleMapiSession final : public MailSession {
  public:
    explicit SimpleMapiSession(std::shared_ptr<SimpleMapi> mapi) : mapi_(std::move(mapi)) {}
    SimpleMapiSession(const SimpleMapiSession&) = delete;
    SimpleMapiSession& operator=(const SimpleMapiSession&) = delete;
    ~SimpleMapiSession() override { mapi_->logoff(session_); }

    void NewSession(bool wanted) override { set(MAPI_NEW_SESSION, wanted); }
    void LogonUI(bool wanted) override { set(MAPI_LOGON_UI, wanted); }
    void DownLoadMail(bool wanted) override { set(MAPI_FORCE_DOWNLOAD, wanted); }
    void UserName(const std::string& name) override { profile_ = name; }
    void Password(const std::string& text) override { password_ = text; }
    void ParentWindow(std::uintptr_t window) override { mapi_->setParentWindow(window); }
    void SignOn() override;
    long SessionID() const override { return session_; }
    std::optional<Refusal> signOnRefusal() const override { return refusal_; }
    void SignOff() override;

  private:
    void set(FLAGS flag, bool wanted) { flags_ = wanted ? flags_ | flag : flags_ & ~flag; }

    std::shared_ptr<SimpleMapi> mapi_;
    FLAGS flags_ = 0;
    std::string profile_;
    std::string password_;
    std::optional<Refusal> refusal_;
    long session_ = 0;
};

} // namespace turnpost
