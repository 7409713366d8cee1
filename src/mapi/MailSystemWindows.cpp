#include "mapi/MailSystem.h"
#include "mapi/SimpleMapiMessages.h"
#include "mapi/SimpleMapiSession.h"

namespace turnpost {

// The mail client supplies the sender.
MailSystem makeMailSystem(const Settings&) {
    const auto mapi = std::make_shared<SimpleMapi>();
    return {std::make_unique<SimpleMapiSession>(mapi), std::make_unique<SimpleMapiMessages>(mapi)};
}

} // namespace turnpost
