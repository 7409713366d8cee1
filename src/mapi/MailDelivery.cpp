#include "mapi/MailDelivery.h"

#include "text/Messages.h"

namespace turnpost {

MailDelivery::MailDelivery(const DispatchInputs& inputs, SendReport& report, SendState& state,
                           MailSession& session, MailMessages& mail, SendDisplay& display,
                           MessageBox& box)
    : inputs_(inputs), report_(report), state_(state), session_(session), mail_(mail),
      display_(display), box_(box) {}

void MailDelivery::deliver(std::uintptr_t parentWindow) {
    if (inputs_.game.GamePath.empty()) {
        box_.show(messages::invalidGamePath);
        return;
    }
    delivering_ = true;
    display_.showBreak({});
    session_.ParentWindow(parentWindow);
    if (signOn()) {
        mail_.SessionID(session_.SessionID());
        // Copies, because a mail client may let the host change the game during the delivery.
        const GameDetails game = inputs_.game;
        const MessageTemplate message = inputs_.message;
        const AttachmentChoices attachments = inputs_.attachments;
        for (state_.SendCursor = 0; state_.SendCursor < rowCount; ++state_.SendCursor) {
            deliverRow({game, message, attachments});
        }
        session_.SignOff();
    } else {
        const auto refusal = session_.signOnRefusal();
        box_.show(refusal ? messages::mapiError(refusal->words) : messages::noMailSystem);
    }
    display_.openReport();
    delivering_ = false;
}

bool MailDelivery::signOn() {
    session_.NewSession(false);
    session_.LogonUI(false);
    session_.DownLoadMail(false);
    session_.UserName("");
    session_.Password("");
    session_.SignOn();
    return session_.SessionID() != 0;
}

void MailDelivery::deliverRow(const DispatchInputs& row) {
    std::vector<std::string> files;
    // The mail system reads the file itself.
    const auto attach = [&files](const std::string& path) { files.push_back(path); };
    std::string& ReportLine = report_.line(state_.SendCursor);
    const auto message = applyRowRules(row, state_.SendCursor, Transport::Mapi, attach, ReportLine);
    if (message) {
        state_.PlayerBody = message->PlayerBody;
        state_.PlayerSubject = message->PlayerSubject;
        compose(row.game.row(state_.SendCursor), files);
        const auto refusal = mail_.Send();
        ReportLine = refusal ? messages::mapiError(refusal->words) : messages::emailGenerated;
    }
}

void MailDelivery::compose(const PlayerSlot& player, const std::vector<std::string>& files) {
    mail_.Compose();
    mail_.MsgIndex(-1);
    mail_.MsgSubject(state_.PlayerSubject);
    const auto addRecipient = [&](int index, const std::string& address, int type) {
        mail_.RecipIndex(index);
        mail_.RecipDisplayName(player.PlayerName);
        mail_.RecipAddress(address);
        mail_.RecipType(type);
    };
    addRecipient(0, player.PlayerEmail, mainRecipient);
    if (!player.AltEmail.empty()) {
        addRecipient(1, player.AltEmail, copyRecipient);
    }
    // Simple MAPI places every attachment at a character of the text, so the text needs that many.
    const std::string places = files.empty() ? "" : "\r\n" + std::string(files.size(), ' ');
    mail_.MsgNoteText(state_.PlayerBody + places);
    for (size_t j = 0; j < files.size(); ++j) {
        mail_.AttachmentIndex(static_cast<int>(j));
        mail_.AttachmentPosition(static_cast<int>(j));
        mail_.AttachmentType(dataFile);
        mail_.AttachmentPathName(files[j]);
    }
}

} // namespace turnpost
