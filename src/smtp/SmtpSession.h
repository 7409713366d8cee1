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
/// The driver has prepared the row and requested the connection; when the session ends after a
/// reply it writes the row's outcome and calls the driver's step. There is no time-out: a server
/// that falls silent leaves the send waiting.
class SmtpSession final : public SocketEvents {
  public:
    /// `nextStep` is its butSend2_Click. All references must outlive the session.
    SmtpSession(Socket& socket, SendState& state, const Settings& settings, const GameDetails& game,
                SendReport& report, SendDisplay& display, MessageBox& box,
                std::function<void()> nextStep);

    /// Takes everything waiting as one reply. Any of the codes 220, 250 and 354 is accepted in any
    /// state and sends the next part; any other reply, a fragment of a code included, ends the
    /// session with the reply as the row's outcome. So does an address that by now cannot be sent
    /// as it is shown (see AddressFault.h); the outcome then says why.
    void DataArrival() override;

    /// Shows the error in a message box and ends the whole send: no later row, no report. When the
    /// box is closed, the display gets what is known of each row.
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
