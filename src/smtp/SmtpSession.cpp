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

SmtpSession::SmtpSession(Socket& socket, SendState& state, const Settings& settings,
                         const GameDetails& game, SendReport& report, SendDisplay& display,
                         MessageBox& box, std::function<void()> nextStep)
    : socket_(socket), state_(state), settings_(settings), game_(game), report_(report),
      display_(display), box_(box), nextStep_(std::move(nextStep)) {
    socket_.setEvents(this);
}

void SmtpSession::DataArrival() {
    const std::string reply = socket_.GetData();
    const bool isProcessingRow = state_.SendCursor >= 0 && state_.SendCursor < rowCount;
    if (reply.empty() || !isProcessingRow) {
        return;
    }
    if (isAccepted(reply)) {
        takeNextStep();
        return;
    }
    report_.line(state_.SendCursor) = messages::smtpError(fromWireBytes(reply));
    nextStep_();
}

void SmtpSession::takeNextStep() {
    // Read at each step, so that the next line has what the host has corrected meanwhile.
    const PlayerSlot& player = game_.row(state_.SendCursor);
    if (const auto refusal = checkAddresses(player)) {
        report_.line(state_.SendCursor) = refusal->words;
        nextStep_();
        return;
    }
    // Each state is set before its line is sent.
    switch (state_.SmtpState) {
    case LastSent::Nothing:
        state_.SmtpState = LastSent::Helo;
        socket_.SendData(heloLine(settings_));
        break;
    case LastSent::Helo:
        state_.SmtpState = LastSent::MailFrom;
        socket_.SendData(mailLine(settings_));
        break;
    case LastSent::MailFrom:
        state_.SmtpState = LastSent::RcptTo;
        socket_.SendData(recipientLine(player));
        break;
    case LastSent::RcptTo:
        state_.SmtpState = LastSent::Data;
        socket_.SendData("DATA\r\n");
        break;
    case LastSent::Data:
        state_.SmtpState = LastSent::MessageText;
        sendMessage(player);
        break;
    case LastSent::MessageText:
        state_.SmtpState = LastSent::Quit;
        // The message has been accepted, so the reply to QUIT changes nothing (RFC 5321, 4.1.1.10).
        socket_.SendData("QUIT\r\n");
        // If the greeting came in two pieces, the replies are one step ahead of us and much of the
        // message may still be queued.
        socket_.CloseWhenSent();
        report_.line(state_.SendCursor) = messages::emailSent;
        nextStep_();
        break;
    case LastSent::Quit:
        break;
    }
}

// Checks the addresses that the next line names: they may have changed since the row began.
std::optional<Refusal> SmtpSession::checkAddresses(const PlayerSlot& player) const {
    const LastSent sent = state_.SmtpState;
    const bool messageIsNext = sent == LastSent::Data;
    if (sent == LastSent::Nothing || sent == LastSent::Helo || messageIsNext) {
        if (const auto fault = addressFault(settings_.HostEmail, Transport::Smtp)) {
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
    auto sends = messageText(settings_, player, state_);
    for (std::string& bytes : sends) {
        const bool last = &bytes == &sends.back();
        socket_.SendData(std::move(bytes), last ? Socket::Send::Now : Socket::Send::WithNext);
    }
}

void SmtpSession::Error(int number, const std::string& description) {
    box_.show(messages::socketError(number, description));
    state_.SmtpState = LastSent::Quit;
    socket_.Close();
    display_.showBreak(linesAfterBreak(report_, state_.SendCursor));
}

} // namespace turnpost
