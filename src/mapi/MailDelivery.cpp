#include "mapi/MailDelivery.h"

#include "text/Messages.h"

namespace turnpost {

MailDelivery::MailDelivery(const DispatchInputs& dispatchInputs, SendReport& sendReport,
                           SendState& sendState, MailSession& mailSession,
                           MailMessages& mailMessages, SendDisplay& sendDisplay,
                           MessageBox& messageBox)
    : inputs(dispatchInputs), report(sendReport), state(sendState), session(mailSession),
      mail(mailMessages), display(sendDisplay), box(messageBox) {}

void MailDelivery::deliver(std::uintptr_t parentWindow) {
    if (inputs.game.GamePath.empty()) {
        box.show(messages::invalidGamePath());
        return;
    }
    delivering = true;
    display.showBreak({});
    session.ParentWindow(parentWindow);
    if (signOn()) {
        mail.SessionID(session.SessionID());
        // As they stand now: a mail client may let the host change the game meanwhile.
        const GameDetails game = inputs.game;
        const MessageTemplate message = inputs.message;
        const AttachmentChoices attachments = inputs.attachments;
        for (state.SendCursor = 0; state.SendCursor < rowCount; ++state.SendCursor) {
            deliverRow({game, message, attachments});
        }
        session.SignOff();
    } else {
        const auto refusal = session.signOnRefusal();
        box.show(refusal ? messages::mapiError(refusal->words) : messages::noMailSystem());
    }
    display.openReport();
    delivering = false;
}

bool MailDelivery::signOn() {
    session.NewSession(false);
    session.LogonUI(false);
    session.DownLoadMail(false);
    session.UserName("");
    session.Password("");
    session.SignOn();
    return session.SessionID() != 0;
}

void MailDelivery::deliverRow(const DispatchInputs& row) {
    std::vector<std::string> files;
    // The mail system reads the file itself.
    const auto attach = [&files](const std::string& path) { files.push_back(path); };
    std::string& ReportLine = report.line(state.SendCursor);
    const auto message = applyRowRules(row, state.SendCursor, Transport::Mapi, attach, ReportLine);
    if (message) {
        state.PlayerBody = message->PlayerBody;
        state.PlayerSubject = message->PlayerSubject;
        compose(row.game.row(state.SendCursor), files);
        const auto refusal = mail.Send();
        ReportLine = refusal ? messages::mapiError(refusal->words) : messages::emailGenerated();
    }
}

void MailDelivery::compose(const PlayerSlot& player, const std::vector<std::string>& files) {
    mail.Compose();
    mail.MsgIndex(-1);
    mail.MsgSubject(state.PlayerSubject);
    const auto addRecipient = [&](int index, const std::string& address, int type) {
        mail.RecipIndex(index);
        mail.RecipDisplayName(player.PlayerName);
        mail.RecipAddress(address);
        mail.RecipType(type);
    };
    addRecipient(0, player.PlayerEmail, mainRecipient);
    if (!player.AltEmail.empty()) {
        addRecipient(1, player.AltEmail, copyRecipient);
    }
    // Each attachment needs a character to stand at.
    const std::string places = files.empty() ? "" : "\r\n" + std::string(files.size(), ' ');
    mail.MsgNoteText(state.PlayerBody + places);
    for (size_t j = 0; j < files.size(); ++j) {
        mail.AttachmentIndex(static_cast<int>(j));
        mail.AttachmentPosition(static_cast<int>(j));
        mail.AttachmentType(dataFile);
        mail.AttachmentPathName(files[j]);
    }
}

} // namespace turnpost
