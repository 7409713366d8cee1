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

/// Passes every player's message to the desktop's mail system, all 16 rows in one call.
class MailDelivery {
  public:
    /// All references must outlive the delivery. `state` is that of the send driver, because both
    /// senders share its SendCursor.
    MailDelivery(const DispatchInputs& inputs, SendReport& report, SendState& state,
                 MailSession& session, MailMessages& mail, SendDisplay& display, MessageBox& box);

    /// Sends all rows and opens the report. Without a game folder it only shows a message box.
    /// Without a mail system, or when that refuses the session, it shows a message box and then the
    /// report. If the mail system refuses a message, the row's line is "MAPI Error: " and the mail
    /// system's words, and the next row follows. `parentWindow`: see MailSession::ParentWindow.
    void deliver(std::uintptr_t parentWindow = 0);

    /// True while deliver runs. A mail client may let the host press buttons during that time.
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
