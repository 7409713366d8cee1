#pragma once

#include "compose/DispatchRules.h"
#include "compose/MessageBox.h"
#include "compose/SendDisplay.h"
#include "compose/SendState.h"
#include "mapi/MailMessages.h"
#include "mapi/MailSession.h"

#include <string>
#include <vector>

namespace turnpost {

/// Hands every player's message to the desktop's mail system, all 16 rows in one go; nothing else
/// happens meanwhile.
class MailDelivery {
  public:
    /// All references must outlive the delivery. `state` is the send driver's: the rows are walked
    /// with its SendCursor.
    MailDelivery(const DispatchInputs& inputs, SendReport& report, SendState& state,
                 MailSession& session, MailMessages& mail, SendDisplay& display, MessageBox& box);

    /// Without a game folder, without a mail system, or when it refuses the session, a message box
    /// says so. But for the first case the report follows. A row whose message the mail system does
    /// not take gets "MAPI Error: " and the mail system's words, and the next row follows.
    /// `parentWindow`: see MailSession::ParentWindow.
    void deliver(std::uintptr_t parentWindow = 0);

    /// True until deliver returns. A mail client may let the person press buttons meanwhile.
    bool isDelivering() const { return delivering_; }

  private:
    bool signOn();
    void deliverRow(const DispatchInputs& row);
    void compose(const PlayerSlot& player, const std::vector<std::string>& files);

    DispatchInputs inputs_;
    SendReport& report_;
    SendState& state_;
    MailSession& session_;
    MailMessages& mail_;
    SendDisplay& display_;
    MessageBox& box_;
    bool delivering_ = false;
};

} // namespace turnpost
