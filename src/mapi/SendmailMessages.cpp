#include "mapi/SendmailMessages.h"

#include "mapi/MimeHeader.h"
#include "mapi/SendmailFailure.h"
#include "platform/CodePage.h"
#include "platform/FileError.h"
#include "platform/Files.h"
#include "platform/Messages.h"
#include "platform/Path.h"
#include "platform/Text.h"

namespace turnpost {

SendmailMessages::SendmailMessages(const Settings& senderSettings,
                                   const SendmailSession& mailSession,
                                   std::chrono::milliseconds longest)
    : settings(senderSettings), session(mailSession), limit(longest) {}

std::optional<std::string> SendmailMessages::Send() {
    if (sessionId == 0 || sessionId != session.SessionID()) {
        return messages::noMailSystem();
    }
    if (const auto refused = refusedAddress()) {
        return messages::notOneAddress(*refused);
    }
    try {
        const ProgramEnd end =
            runProgram(session.program(), arguments(), mimeBytes(message()), limit);
        return sendmailFailure(end, session.program(), limit);
    } catch (const FileError& error) {
        return messages::cannotRead(error.path(), error.reason());
    }
}

std::optional<std::string> SendmailMessages::refusedAddress() const {
    // A mail system takes an argument apart as it does a header field: one that holds two addresses
    // would be mail to somebody whom nobody has named.
    for (const MailRecipient& named : recipients) {
        if (!isOneAddress(named.RecipAddress)) {
            return named.RecipAddress;
        }
    }
    if (!trimSpaces(settings.HostEmail).empty() && !isOneAddress(settings.HostEmail)) {
        return settings.HostEmail;
    }
    return std::nullopt;
}

MimeMessage SendmailMessages::message() const {
    MimeMessage values;
    values.from = {settings.HostName, trimSpaces(settings.HostEmail)};
    for (const MailRecipient& named : recipients) {
        auto& field = named.RecipType == copyRecipient ? values.cc : values.to;
        field.push_back({named.RecipDisplayName, named.RecipAddress});
    }
    values.subject = subject;
    values.text = noteText;
    for (const MailAttachment& file : attachments) {
        const std::string& path = file.AttachmentPathName;
        // A name on disk need not be UTF-8.
        values.files.push_back({fromWireBytes(nameOfPath(path)), readFile(path)});
    }
    return values;
}

std::vector<std::string> SendmailMessages::arguments() const {
    // -i: a line with a single period is not the message's end.
    std::vector<std::string> words{"-i"};
    const std::string sender = trimSpaces(settings.HostEmail);
    if (!sender.empty() && sender.front() != '-') {
        words.insert(words.end(), {"-f", sender});
    }
    words.emplace_back("--");
    for (const MailRecipient& named : recipients) {
        words.push_back(trimSpaces(named.RecipAddress));
    }
    return words;
}

} // namespace turnpost
