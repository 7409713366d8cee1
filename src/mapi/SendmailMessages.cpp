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

// The slowest connection that is still waited for.
constexpr size_t bytesPerSecond = 10000;

} // namespace

SendmailMessages::SendmailMessages(const Settings& settings, const SendmailSession& session,
                                   std::chrono::milliseconds timeout)
    : settings_(settings), session_(session), limit_(timeout) {}

std::optional<Refusal> SendmailMessages::Send() {
    if (sessionId == 0 || sessionId != session_.SessionID()) {
        return Refusal{messages::noMailSystem};
    }
    if (auto refused = takeAddresses()) {
        return refused;
    }
    try {
        const std::string bytes = mimeBytes(message());
        const auto timeout = limit_ + std::chrono::seconds(bytes.size() / bytesPerSecond);
        return sendmailFailure(runProgram(session_.program(), arguments(), bytes, timeout),
                               session_.program(), timeout);
    } catch (const FileError& error) {
        return Refusal{messages::cannotRead(error.path(), error.reason())};
    }
}

// Prepares all addresses, or returns what is wrong with one. A mail system parses an argument like
// a header field: with two addresses in it, mail would go to someone the host never named.
std::optional<Refusal> SendmailMessages::takeAddresses() {
    for (MailRecipient& named : recipients) {
        const auto address = mailAddress(named.RecipAddress);
        if (!address) {
            return Refusal{messages::notOneAddress(named.RecipAddress)};
        }
        named.RecipAddress = *address;
    }
    sender_ = trimSpaces(settings_.HostEmail);
    if (const auto fault = addressFault(settings_.HostEmail, Transport::Mapi)) {
        return Refusal{messages::ownAddressUnsendable(fault->words)};
    }
    if (!sender_.empty()) {
        const auto address = mailAddress(sender_);
        if (!address) {
            return Refusal{messages::hostNotOneAddress(settings_.HostEmail)};
        }
        sender_ = *address;
    }
    return std::nullopt;
}

MimeMessage SendmailMessages::message() const {
    MimeMessage values;
    values.from = {settings_.HostName, sender_};
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
    // -i: a line with a single period does not end the message.
    std::vector<std::string> words{"-i"};
    if (!sender_.empty() && sender_.front() != '-') {
        words.insert(words.end(), {"-f", sender_});
    }
    words.emplace_back("--");
    for (const MailRecipient& named : recipients) {
        words.push_back(named.RecipAddress);
    }
    return words;
}

} // namespace turnpost
