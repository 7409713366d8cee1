#pragma once

#include "compose/DispatchRules.h"
#include "compose/SendDisplay.h"
#include "smtp/SmtpSession.h"

#include <chrono>

namespace turnpost {

inline constexpr std::chrono::seconds silenceTimeout{60};

/// Sends the turn by SMTP: walks the 16 rows one at a time, one connection for each message. A
/// chain of steps driven by the socket's events; nothing here waits.
class SendDriver {
  public:
    /// All references must outlive the driver.
    SendDriver(const DispatchInputs& inputs, const Settings& settings, SendReport& report,
               Socket& socket, SendDisplay& display, MessageBox& box);

    /// Starts a send. A missing or invalid server address, a game folder without files, or an
    /// address of the host that cannot be sent as it is shown, is said in a message box and changes
    /// nothing, not even a send under way. Otherwise a send under way
    /// is over: its connection is closed and its remaining rows are the new send's.
    void butSend_Click();

    /// The step: closes the connection and goes on to the next row that gets a message, or past the
    /// last row to the report.
    void butSend2_Click();

    /// Closes the connection; nothing of the send happens any more.
    void abandon();

    /// True while a connection is being made or is open, unless the server has said nothing for
    /// silenceTimeout: such a send may never end by itself.
    bool isSending() const { return socket_.isOpen() && socket_.silence() < silenceTimeout; }

    SendState& sendState() { return state_; }

  private:
    bool prepareRow();
    void showRowReached();

    DispatchInputs inputs_;
    const Settings& settings_;
    SendReport& report_;
    Socket& socket_;
    SendDisplay& display_;
    MessageBox& box_;
    SendState state_;
    SmtpSession session_;
};

} // namespace turnpost
