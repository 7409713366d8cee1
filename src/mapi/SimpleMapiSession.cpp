#include "mapi/SimpleMapiSession.h"

#include "text/Messages.h"

namespace turnpost {

void SimpleMapiSession::SignOn() {
    SignOff();
    const SimpleMapi::Logon logon = mapi->logon(profile, password, flags);
    session = logon.session;
    refusal.reset();
    if (logon.refusal) {
        refusal = Refusal{messages::simpleMapiFailure(*logon.refusal)};
    }
}

void SimpleMapiSession::SignOff() {
    mapi->logoff(session);
    session = 0;
}

} // namespace turnpost
