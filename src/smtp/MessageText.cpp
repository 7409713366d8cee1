#include "smtp/MessageText.h"

#include "platform/CodePage.h"
#include "platform/Text.h"

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

std::string doubleLeadingPeriods(std::string_view text) {
    std::string result;
    result.reserve(text.size() + 16);
    bool lineStart = true;
    for (const char c : text) {
        if (lineStart && c == '.') {
            result += '.';
        }
        result += c;
        lineStart = c == '\n';
    }
    return result;
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
    sends.push_back(doubleLeadingPeriods(
        toWireBytes(withCrLf(state.PlayerBody) + "\r\n\r\n" + state.AttachmentText + "\r\n")));
    sends.emplace_back(".\r\n");
    return sends;
}

} // namespace turnpost
