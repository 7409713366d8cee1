#include "mapi/SimpleMapiMessages.h"

#include "platform/CodePage.h"
#include "platform/Messages.h"
#include "platform/Path.h"

#include <algorithm>
#include <deque>

namespace turnpost {

namespace {

struct Utf16 {
    using Text = std::wstring;
    using Message = MapiMessageW;
    using Recipient = MapiRecipDescW;
    using File = MapiFileDescW;

    static Text encode(const std::string& text) { return toUtf16(text); }
};

struct SystemCodePage {
    using Text = std::string;
    using Message = MapiMessage;
    using Recipient = MapiRecipDesc;
    using File = MapiFileDesc;

    static Text encode(const std::string& text) { return toFileBytes(text); }
};

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

template <typename Encoding> ULONG SimpleMapiMessages::submit() const {
    // Simple MAPI's structures only point to their texts; a deque leaves them where they are.
    std::deque<typename Encoding::Text> texts;
    const auto keep = [&texts](const std::string& text) {
        return texts.emplace_back(Encoding::encode(text)).data();
    };
    std::vector<typename Encoding::Recipient> recips;
    for (const MailRecipient& given : recipients) {
        auto& recip = recips.emplace_back();
        recip.ulRecipClass = static_cast<ULONG>(given.RecipType);
        recip.lpszName = keep(given.RecipDisplayName);
        recip.lpszAddress = keep(mapiAddress(given.RecipAddress));
    }
    std::vector<typename Encoding::File> files;
    for (const MailAttachment& given : attachments) {
        auto& file = files.emplace_back();
        file.flFlags = static_cast<ULONG>(given.AttachmentType);
        file.nPosition = static_cast<ULONG>(given.AttachmentPosition);
        file.lpszPathName = keep(withNativeSeparators(given.AttachmentPathName));
    }
    typename Encoding::Message message{};
    message.lpszSubject = keep(subject);
    message.lpszNoteText = keep(noteText);
    message.nRecipCount = static_cast<ULONG>(recips.size());
    message.lpRecips = recips.data();
    message.nFileCount = static_cast<ULONG>(files.size());
    message.lpFiles = files.data();
    return mapi->sendMail(sessionId, message);
}

std::optional<std::string> SimpleMapiMessages::Send() {
    const ULONG code = mapi->takesUtf16() ? submit<Utf16>() : submit<SystemCodePage>();
    if (code == SUCCESS_SUCCESS) {
        return std::nullopt;
    }
    return messages::simpleMapiFailure(code);
}

} // namespace turnpost
