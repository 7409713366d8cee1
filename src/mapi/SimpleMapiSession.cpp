#include "mapi/SimpleMapiSession.h"

#include "text/Messages.h"

namespace turnpost {

void SimpleMapiSession::SignOn() {
    SignOff();
    const SimpleMapi::Logon logon = mapi_->logon(profile_, password_, flags_);
    session_ = logon.session;
    refusal_.reset();
    if (logon.refusal) {
        refusal_ = Refusal{messages::simpleMapiFailure(*logon.refusal)};
    }
}

void SimpleMapiSession::SignOff() {
    mapi_->logoff(session_);
    session_ = 0;
}

} // namespace turnpost
