#include "smtp/SmtpSession.h"

#include "compose/AddressFault.h"
#include "smtp/MessageText.h"
#include "text/CodePage.h"
#include "text/Messages.h"

namespace turnpost {

namespace {

bool isAccepted(const std::string& reply) {
    const std::string code = reply.substr(0, 3);
    return code == "220" || code == "250" || code == "354";
}

} // namespace

SmtpSession::SmtpSession(Socket& usedSocket, SendState& sendState, const Settings& shownSettings,
                         const GameDetails& shownGame, SendReport& sendReport,
                         SendDisplay& sendDisplay, MessageBox& messageBox,
                         std::function<void()> stepOfDriver)
    : socket(usedSocket), state(sendState), settings(shownSettings), game(shownGame),
      report(sendReport), display(sendDisplay), box(messageBox), nextStep(std::move(stepOfDriver)) {
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
    report.line(state.SendCursor) = messages::smtpError(fromWireBytes(reply));
    nextStep();
}

void SmtpSession::takeNextStep() {
    // Read now, not when the row began: what the host corrects meanwhile reaches the next line.
    const PlayerSlot& player = game.row(state.SendCursor);
    if (const auto refusal = checkAddresses(player)) {
        report.line(state.SendCursor) = refusal->words;
        nextStep();
        return;
    }
    // The state is that of the line about to be sent before it goes out.
    switch (state.SmtpState) {
    case LastSent::Nothing:
        state.SmtpState = LastSent::Helo;
        socket.SendData(heloLine(settings));
        break;
    case LastSent::Helo:
        state.SmtpState = LastSent::MailFrom;
        socket.SendData(mailLine(settings));
        break;
    case LastSent::MailFrom:
        state.SmtpState = LastSent::RcptTo;
        socket.SendData(recipientLine(player));
        break;
    case LastSent::RcptTo:
        state.SmtpState = LastSent::Data;
        socket.SendData("DATA\r\n");
        break;
    case LastSent::Data:
        state.SmtpState = LastSent::MessageText;
        sendMessage(player);
        break;
    case LastSent::MessageText:
        state.SmtpState = LastSent::Quit;
        // The message is accepted; what the server says to QUIT changes nothing (RFC
        // 5321, 4.1.1.10).
        socket.SendData("QUIT\r\n");
        // If the greeting came in two pieces, the replies are one step ahead of us and much of the
        // message may still be queued.
        socket.CloseWhenSent();
        report.line(state.SendCursor) = messages::emailSent();
        nextStep();
        break;
    case LastSent::Quit:
        break;
    }
}

// An address that the next line names may have changed since the row began.
std::optional<Refusal> SmtpSession::checkAddresses(const PlayerSlot& player) const {
    const LastSent sent = state.SmtpState;
    const bool messageIsNext = sent == LastSent::Data;
    if (sent == LastSent::Nothing || sent == LastSent::Helo || messageIsNext) {
        if (const auto fault = addressFault(settings.HostEmail, Transport::Smtp)) {
            return Refusal{messages::ownAddressUnsendable(fault->words)};
        }
    }
    if (sent == LastSent::MailFrom || messageIsNext) {
        if (const auto fault = addressFault(player.PlayerEmail, Transport::Smtp)) {
            return Refusal{messages::addressUnsendable(fault->words)};
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
    state.SmtpState = LastSent::Quit;
    socket.Close();
    display.showBreak(linesAfterBreak(report, state.SendCursor));
}

} // namespace turnpost
