#include "mapi/MailSystem.h"
#include "mapi/SendmailMessages.h"
#include "mapi/SendmailSession.h"

namespace turnpost {

MailSystem makeMailSystem(const Settings& settings) {
    auto session = std::make_unique<SendmailSession>();
    auto messages = std::make_unique<SendmailMessages>(settings, *session);
    return {std::move(session), std::move(messages)};
}

} // namespace turnpost
