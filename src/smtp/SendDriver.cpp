#include "smtp/SendDriver.h"

#include "compose/AddressFault.h"
#include "compose/MUUEncode.h"
#include "files/Files.h"
#include "smtp/ServerAddress.h"
#include "text/Messages.h"
#include "text/Text.h"

#include <algorithm>

namespace turnpost {

SendDriver::SendDriver(const DispatchInputs& dispatchInputs, const Settings& shownSettings,
                       SendReport& sendReport, Socket& usedSocket, SendDisplay& sendDisplay,
                       MessageBox& messageBox)
    : inputs(dispatchInputs), settings(shownSettings), report(sendReport), socket(usedSocket),
      display(sendDisplay), box(messageBox),
      session(usedSocket, state, shownSettings, dispatchInputs.game, sendReport, sendDisplay,
              messageBox, [this] { butSend2_Click(); }) {}

void SendDriver::butSend_Click() {
    const std::string address = trimSpaces(settings.SmtpServer);
    if (address.empty()) {
        box.show(messages::noServerAddress());
        return;
    }
    if (!parseServerAddress(address)) {
        box.show(messages::invalidServerAddress());
        return;
    }
    if (!isAbsolutePath(inputs.game.GamePath) || !folderHoldsFile(inputs.game.GamePath)) {
        box.show(messages::invalidGamePath());
        return;
    }
    if (const auto fault = addressFault(settings.HostEmail, Transport::Smtp)) {
        box.show(messages::ownAddressUnsendable(fault->words));
        return;
    }
    display.showBreak({});
    const auto& rows = inputs.game.rows;
    state.ServerAddress = address;
    state.ReachedCount = 0;
    state.IncludedCount = static_cast<std::int16_t>(std::count_if(
        rows.begin(), rows.end(), [](const PlayerSlot& row) { return row.IncludePlayer == 1; }));
    state.SendCursor = -1;
    butSend2_Click();
}

void SendDriver::butSend2_Click() {
    do {
        socket.Close();
        ++state.SendCursor;
        if (state.SendCursor >= rowCount) {
            state.SendCursor = rowCount;
            display.setProgress(1.0);
            display.openReport();
            return;
        }
        showRowReached();
    } while (!prepareRow());
    // Only a step without a send before it has no address: a button that nobody sees can be pressed
    // by a program.
    if (const auto address = parseServerAddress(state.ServerAddress)) {
        state.SmtpState = LastSent::Nothing;
        socket.Connect(address->host, address->port);
    }
}

void SendDriver::showRowReached() {
    if (inputs.game.row(state.SendCursor).IncludePlayer != 1) {
        return;
    }
    ++state.ReachedCount;
    // Rows may have been ticked since the count was taken; the bar must not leave its track.
    const int included = std::max(state.IncludedCount, state.ReachedCount);
    display.setProgress(static_cast<double>(state.ReachedCount) / included);
}

bool SendDriver::prepareRow() {
    // Gives its memory back, too; clear() does not.
    std::string().swap(state.AttachmentText);
    const auto attach = [this](const std::string& path) {
        // The first block is the text itself, not copied into it.
        state.AttachmentText = std::move(state.AttachmentText) + (UUEncode(path) + "\r\n");
    };
    const auto message = applyRowRules(inputs, state.SendCursor, Transport::Smtp, attach,
                                       report.line(state.SendCursor));
    if (!message) {
        std::string().swap(state.AttachmentText);
        return false;
    }
    state.PlayerBody = message->PlayerBody;
    state.PlayerSubject = message->PlayerSubject;
    return true;
}

void SendDriver::abandon() {
    socket.Close();
    state.SmtpState = LastSent::Quit;
}

} // namespace turnpost
