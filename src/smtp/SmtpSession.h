#pragma once

#include "compose/MessageBox.h"
#include "compose/SendDisplay.h"
#include "compose/SendReport.h"
#include "compose/SendState.h"
#include "net/Socket.h"
#include "roster/GameDetails.h"
#include "storage/Settings.h"
#include "text/Refusal.h"

#include <functional>
#include <optional>
#include <string>

namespace turnpost {

/// Delivers one player's message over one connection (RFC 5321), one step for each arrival of data.
/// The driver prepares the row and requests the connection. When a reply ends the session, it
/// reports the row's outcome and calls the driver's next step. There is no time-out: the send waits
/// for as long as the server sends nothing.
class SmtpSession final : public SocketEvents {
  public:
    /// `nextStep` is the driver's butSend2_Click. All references must outlive the session.
    SmtpSession(Socket& socket, SendState& state, const Settings& settings, const GameDetails& game,
                SendReport& report, SendDisplay& display, MessageBox& box,
                std::function<void()> nextStep);

    /// Takes everything that has arrived as one reply. The codes 220, 250 and 354 are accepted in
    /// any state; then the next part is sent. Any other reply, even a fragment of a code, ends the
    /// session and becomes the row's outcome. The session also ends when an address can no longer
    /// be sent (see AddressFault.h); the outcome then says why.
    void DataArrival() override;

    /// Shows the error in a message box and ends the whole send: no further row is processed and no
    /// report is opened. When the box is closed, the display gets what is known about each row.
    void Error(int number, const std::string& description) override;

  private:
    void takeNextStep();
    std::optional<Refusal> checkAddresses(const PlayerSlot& player) const;
    void sendMessage(const PlayerSlot& player);

    Socket& socket_;
    SendState& state_;
    const Settings& settings_;
    const GameDetails& game_;
    SendReport& report_;
    SendDisplay& display_;
    MessageBox& box_;
    std::function<void()> nextStep_;
};

} // namespace turnpost
