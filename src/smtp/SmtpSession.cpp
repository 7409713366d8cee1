#include "smtp/SmtpSession.h"

#include "compose/AddressFault.h"
#include "smtp/MessageText.h"
#include "text/CodePage.h"
#include "text/Messages.h"

namespace turnpost {

namespace {

constexpr int abandoned = 6;

bool isAccepted(const std::string& reply) {
    const std::string code = reply.substr(0, 3);
    return code == "220" || code == "250" || code == "354";
}

} // namespace

SmtpSession::SmtpSession(Socket& usedSocket, SendState& sendState, const Settings& shownSettings,
                         const GameDetails& shownGame, SendReport& sendReport,
                         SendDisplay& sendDisplay, MessageBox& messageBox,
                         std::function<void()> nextStep)
    : socket(usedSocket), state(sendState), settings(shownSettings), game(shownGame),
      report(sendReport), display(sendDisplay), box(messageBox),
      butSend2_Click(std::move(nextStep)) {
    socket.setEvents(this);
}

void SmtpSession::DataArrival() {
    const std::string reply = socket.GetData();
    const bool rowUnderWay = state.SendCursor >= 0 && state.SendCursor < rowCount;
    if (reply.empty() || !rowUnderWay) {
        return;
    }
    if (isAccepted(reply)) {
        takeNextStep();
        return;
    }
    report[static_cast<size_t>(state.SendCursor)] = messages::smtpError(fromWireBytes(reply));
    butSend2_Click();
}

void SmtpSession::takeNextStep() {
    // Read now, not when the row began: what the host corrects meanwhile reaches the next line.
    const PlayerSlot& player = game.rows[static_cast<size_t>(state.SendCursor)];
    if (state.SmtpState < 0 || state.SmtpState >= abandoned) {
        return;
    }
    if (const auto finding = findingForNextStep(player)) {
        report[static_cast<size_t>(state.SendCursor)] = *finding;
        butSend2_Click();
        return;
    }
    ++state.SmtpState;
    switch (state.SmtpState) {
    case 1:
        socket.SendData(heloLine(settings));
        break;
    case 2:
        socket.SendData(mailLine(settings));
        break;
    case 3:
        socket.SendData(recipientLine(player));
        break;
    case 4:
        socket.SendData("DATA\r\n");
        break;
    case 5:
        sendMessage(player);
        break;
    default:
        // The message is accepted; what the server says to QUIT changes nothing (RFC
        // 5321, 4.1.1.10).
        socket.SendData("QUIT\r\n");
        // After a greeting in two arrivals every reply answers the command before; much of the
        // message may still be queued.
        socket.CloseWhenSent();
        report[static_cast<size_t>(state.SendCursor)] = messages::emailSent();
        butSend2_Click();
    }
}

// What is wrong with an address that the next part names: it may have changed since the row began.
std::optional<std::string> SmtpSession::findingForNextStep(const PlayerSlot& player) const {
    const int sent = state.SmtpState;
    const bool namesHost = sent == 0 || sent == 1 || sent == 4;
    const bool namesPlayer = sent == 2 || sent == 4;
    if (namesHost) {
        if (const auto fault = addressFault(settings.HostEmail, Transport::Smtp)) {
            return messages::ownAddressUnsendable(*fault);
        }
    }
    if (namesPlayer) {
        if (const auto fault = addressFault(player.PlayerEmail, Transport::Smtp)) {
            return messages::addressUnsendable(*fault);
        }
    }
    return std::nullopt;
}

void SmtpSession::sendMessage(const PlayerSlot& player) {
    auto sends = messageText(settings, player, state);
    for (std::string& bytes : sends) {
        const bool last = &bytes == &sends.back();
        socket.SendData(std::move(bytes), last ? Socket::Send::Now : Socket::Send::WithNext);
    }
}

void SmtpSession::Error(int number, const std::string& description) {
    box.show(messages::socketError(number, description));
    state.SmtpState = abandoned;
    socket.Close();
    display.showBreak(linesAfterBreak(report, state.SendCursor));
}

} // namespace turnpost
