#include "mapi/SimpleMapiSession.h"

namespace turnpost {

void SimpleMapiSession::SignOn() {
    SignOff();
    session = mapi->logon(profile, password, flags);
}

void SimpleMapiSession::SignOff() {
    mapi->logoff(session);
    session = 0;
}

} // namespace turnpost
