#pragma once

#include "mapi/MailMessages.h"
#include "mapi/MailSession.h"
#include "storage/Settings.h"

#include <memory>

namespace turnpost {

/// The two objects through which the desktop's mail system is used.
struct MailSystem {
    std::unique_ptr<MailSession> MAPISession1;
    std::unique_ptr<MailMessages> MAPIMessages1;
};

/// The mail system of this desktop: Simple MAPI on Windows, the sendmail program elsewhere. The
/// sender is read from `settings` for each message; `settings` must outlive the mail system.
MailSystem makeMailSystem(const Settings& settings);

} // namespace turnpost
