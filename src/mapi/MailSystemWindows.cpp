#include "mapi/MailSystem.h"
#include "mapi/SimpleMapiMessages.h"
#include "mapi/SimpleMapiSession.h"

namespace turnpost {

// The sender is the mail client's own affair.
MailSystem makeMailSystem(const Settings&) {
    const auto mapi = std::make_shared<SimpleMapi>();
    return {std::make_unique<SimpleMapiSession>(mapi), std::make_unique<SimpleMapiMessages>(mapi)};
}

} // namespace turnpost
