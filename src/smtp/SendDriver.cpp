#include "smtp/SendDriver.h"

#include "compose/AddressFault.h"
#include "compose/MUUEncode.h"
#include "files/Files.h"
#include "smtp/ServerAddress.h"
#include "text/Messages.h"
#include "text/Text.h"

#include <algorithm>

namespace turnpost {

SendDriver::SendDriver(const DispatchInputs& inputs, const Settings& settings, SendReport& report,
                       Socket& socket, SendDisplay& display, MessageBox& box)
    : inputs_(inputs), settings_(settings), report_(report), socket_(socket), display_(display),
      box_(box), session_(socket, state_, settings, inputs.game, report, display, box,
                          [this] { butSend2_Click(); }) {}

void SendDriver::butSend_Click() {
    const std::string address = trimSpaces(settings_.SmtpServer);
    if (address.empty()) {
        box_.show(messages::noServerAddress);
        return;
    }
    if (!parseServerAddress(address)) {
        box_.show(messages::invalidServerAddress);
        return;
    }
    if (!isAbsolutePath(inputs_.game.GamePath) || !folderHoldsFile(inputs_.game.GamePath)) {
        box_.show(messages::invalidGamePath);
        return;
    }
    if (const auto fault = addressFault(settings_.HostEmail, Transport::Smtp)) {
        box_.show(messages::ownAddressUnsendable(fault->words));
        return;
    }
    display_.showBreak({});
    const auto& rows = inputs_.game.rows;
    state_.ServerAddress = address;
    state_.ReachedCount = 0;
    state_.IncludedCount = static_cast<std::int16_t>(std::count_if(
        rows.begin(), rows.end(), [](const PlayerSlot& row) { return row.IncludePlayer == 1; }));
    state_.SendCursor = -1;
    butSend2_Click();
}

void SendDriver::butSend2_Click() {
    do {
        socket_.Close();
        ++state_.SendCursor;
        if (state_.SendCursor >= rowCount) {
            state_.SendCursor = rowCount;
            display_.setProgress(1.0);
            display_.openReport();
            return;
        }
        showRowReached();
    } while (!prepareRow());
    // The address is missing only when another program presses the hidden button butSend2 before
    // any send.
    if (const auto address = parseServerAddress(state_.ServerAddress)) {
        state_.SmtpState = LastSent::Nothing;
        socket_.Connect(address->host, address->port);
    }
}

void SendDriver::showRowReached() {
    if (inputs_.game.row(state_.SendCursor).IncludePlayer != 1) {
        return;
    }
    ++state_.ReachedCount;
    // Rows may have been ticked since they were counted; the fraction must not exceed 1.
    const int included = std::max(state_.IncludedCount, state_.ReachedCount);
    display_.setProgress(static_cast<double>(state_.ReachedCount) / included);
}

bool SendDriver::prepareRow() {
    // Unlike clear(), this also frees the memory.
    std::string().swap(state_.AttachmentText);
    const auto attach = [this](const std::string& path) {
        // Moves the first block instead of copying it.
        state_.AttachmentText = std::move(state_.AttachmentText) + (UUEncode(path) + "\r\n");
    };
    const auto message = applyRowRules(inputs_, state_.SendCursor, Transport::Smtp, attach,
                                       report_.line(state_.SendCursor));
    if (!message) {
        std::string().swap(state_.AttachmentText);
        return false;
    }
    state_.PlayerBody = message->PlayerBody;
    state_.PlayerSubject = message->PlayerSubject;
    return true;
}

void SendDriver::abandon() {
    socket_.Close();
    state_.SmtpState = LastSent::Quit;
}

} // namespace turnpost
