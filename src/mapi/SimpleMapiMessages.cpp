#include "mapi/SimpleMapiMessages.h"

#include "text/CodePage.h"
#include "text/Messages.h"
#include "text/Path.h"

#include <algorithm>
#include <deque>

namespace turnpost {

namespace {

bool namesItsType(const std::string& address) {
    const auto isLetter = [](char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); };
    const auto end = std::find_if_not(address.begin(), address.end(), isLetter);
    return end != address.begin() && end != address.end() && *end == ':';
}

std::string mapiAddress(const std::string& address) {
    return namesItsType(address) ? address : "SMTP:" + address;
}

std::string withNativeSeparators(std::string path) {
    std::replace(path.begin(), path.end(), '/', pathSeparator);
    return path;
}

} // namespace

std::optional<Refusal> SimpleMapiMessages::Send() {
    // Simple MAPI's structures only point to their texts; a deque never moves its elements.
    std::deque<std::wstring> texts;
    const auto keep = [&texts](const std::string& text) {
        return texts.emplace_back(toUtf16(text)).data();
    };
    std::vector<MapiRecipDescW> recips;
    for (const MailRecipient& given : recipients) {
        auto& recip = recips.emplace_back();
        recip.ulRecipClass = static_cast<ULONG>(given.RecipType);
        recip.lpszName = keep(given.RecipDisplayName);
        recip.lpszAddress = keep(mapiAddress(given.RecipAddress));
    }
    std::vector<MapiFileDescW> files;
    for (const MailAttachment& given : attachments) {
        auto& file = files.emplace_back();
        file.flFlags = static_cast<ULONG>(given.AttachmentType);
        file.nPosition = static_cast<ULONG>(given.AttachmentPosition);
        file.lpszPathName = keep(withNativeSeparators(given.AttachmentPathName));
    }
    MapiMessageW message{};
    message.lpszSubject = keep(subject);
    message.lpszNoteText = keep(noteText);
    message.nRecipCount = static_cast<ULONG>(recips.size());
    message.lpRecips = recips.data();
    message.nFileCount = static_cast<ULONG>(files.size());
    message.lpFiles = files.data();
    const ULONG code = mapi_->sendMail(sessionId, message);
    return code == SUCCESS_SUCCESS ? std::nullopt
                                   : std::optional(Refusal{messages::simpleMapiFailure(code)});
}

} // namespace turnpost
