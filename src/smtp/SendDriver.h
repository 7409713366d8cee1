#pragma once

#include "compose/DispatchRules.h"
#include "compose/SendDisplay.h"
#include "smtp/SmtpSession.h"

#include <chrono>

namespace turnpost {

inline constexpr std::chrono::seconds silenceTimeout{60};

/// Sends the turn by SMTP: processes the 16 rows one at a time, with one connection for each
/// message. The events of the socket drive the steps; no function here waits.
class SendDriver {
  public:
    /// All references must outlive the driver.
    SendDriver(const DispatchInputs& inputs, const Settings& settings, SendReport& report,
               Socket& socket, SendDisplay& display, MessageBox& box);

    /// Starts a send. If the server address is missing or invalid, the game folder holds no file,
    /// or the host's address cannot be sent (see AddressFault.h), shows a message box and changes
    /// nothing; a send in progress then goes on. Otherwise a send in progress ends: its connection
    /// is closed and the new send starts with the first row.
    void butSend_Click();

    /// Takes one step: closes the connection and starts the message of the next row that gets one.
    /// After the last row it opens the report.
    void butSend2_Click();

    /// Closes the connection and ends the send.
    void abandon();

    /// True while a connection is being made or is open, except when the server has sent nothing
    /// for silenceTimeout: such a send may never end by itself.
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
