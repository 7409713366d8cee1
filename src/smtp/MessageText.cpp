#include "smtp/MessageText.h"

#include "platform/CodePage.h"
#include "platform/Text.h"

#include <algorithm>

namespace turnpost {

namespace {

std::string wireLine(std::string_view text) {
    return toWireBytes(oneLine(text)) + "\r\n";
}

std::string trimmedLine(std::string_view text) {
    return trimSpaces(oneLine(text));
}

} // namespace

std::string heloLine(const Settings& settings) {
    const std::string address = trimmedLine(settings.HostEmail);
    const std::string name = address.substr(0, address.find('@'));
    return wireLine("HELO " + (address.empty() ? "localhost" : name));
}

std::string mailLine(const Settings& settings) {
    return wireLine("MAIL FROM:" + trimmedLine(settings.HostEmail));
}

std::string recipientLine(const PlayerSlot& player) {
    return wireLine("RCPT TO:" + trimmedLine(player.PlayerEmail));
}

void appendToWire(std::string& bytes, std::string_view text) {
    // Line by line: all at once, an attachment of many megabytes would be there several times.
    while (!text.empty()) {
        const size_t length = std::min(text.find('\n'), text.size() - 1) + 1;
        const std::string line = toWireBytes(text.substr(0, length));
        bytes.append(line.starts_with('.') ? "." : "").append(line);
        text.remove_prefix(length);
    }
}

std::vector<std::string> messageText(const Settings& settings, const PlayerSlot& player,
                                     const SendState& state) {
    std::vector<std::string> sends;
    sends.push_back(wireLine("From:" + settings.HostName + " <" + settings.HostEmail + ">"));
    sends.push_back(wireLine("To:" + player.PlayerName + " <" + player.PlayerEmail + ">"));
    if (!player.AltEmail.empty()) {
        sends.push_back(wireLine("CC:" + player.PlayerName + "<" + player.AltEmail + ">"));
    }
    sends.push_back(wireLine("Subject:" + state.PlayerSubject) + "\r\n");
    std::string& text = sends.emplace_back();
    text.reserve(state.PlayerBody.size() + state.AttachmentText.size() +
                 state.AttachmentText.size() / 64);
    appendToWire(text, withCrLf(state.PlayerBody) + "\r\n\r\n");
    appendToWire(text, state.AttachmentText);
    appendToWire(text, "\r\n");
    sends.emplace_back(".\r\n");
    return sends;
}

} // namespace turnpost
