#include "mapi/SendmailMessages.h"

#include "compose/AddressFault.h"
#include "files/FileError.h"
#include "files/Files.h"
#include "mapi/MimeHeader.h"
#include "mapi/SendmailFailure.h"
#include "text/CodePage.h"
#include "text/Messages.h"
#include "text/Path.h"
#include "text/Text.h"

namespace turnpost {

namespace {

// Of a line so slow that it hardly is one.
constexpr size_t bytesPerSecond = 10000;

} // namespace

SendmailMessages::SendmailMessages(const Settings& senderSettings,
                                   const SendmailSession& mailSession,
                                   std::chrono::milliseconds timeout)
    : settings(senderSettings), session(mailSession), limit(timeout) {}

std::optional<Refusal> SendmailMessages::Send() {
    if (sessionId == 0 || sessionId != session.SessionID()) {
        return Refusal{messages::noMailSystem()};
    }
    if (auto refused = takeAddresses()) {
        return refused;
    }
    try {
        const std::string bytes = mimeBytes(message());
        const auto timeout = limit + std::chrono::seconds(bytes.size() / bytesPerSecond);
        return sendmailFailure(runProgram(session.program(), arguments(), bytes, timeout),
                               session.program(), timeout);
    } catch (const FileError& error) {
        return Refusal{messages::cannotRead(error.path(), error.reason())};
    }
}

// Gives what is wrong with one of them. A mail system takes an argument apart as it does a header
// field: one that holds two addresses would be mail to somebody whom nobody has named.
std::optional<Refusal> SendmailMessages::takeAddresses() {
    for (MailRecipient& named : recipients) {
        const auto address = mailAddress(named.RecipAddress);
        if (!address) {
            return Refusal{messages::notOneAddress(named.RecipAddress)};
        }
        named.RecipAddress = *address;
    }
    sender = trimSpaces(settings.HostEmail);
    if (const auto fault = addressFault(settings.HostEmail, Transport::Mapi)) {
        return Refusal{messages::ownAddressUnsendable(fault->words)};
    }
    if (!sender.empty()) {
        const auto address = mailAddress(sender);
        if (!address) {
            return Refusal{messages::hostNotOneAddress(settings.HostEmail)};
        }
        sender = *address;
    }
    return std::nullopt;
}

MimeMessage SendmailMessages::message() const {
    MimeMessage values;
    values.from = {settings.HostName, sender};
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
    if (!sender.empty() && sender.front() != '-') {
        words.insert(words.end(), {"-f", sender});
    }
    words.emplace_back("--");
    for (const MailRecipient& named : recipients) {
        words.push_back(named.RecipAddress);
    }
    return words;
}

} // namespace turnpost
