#include "smtp/MessageText.h"

#include "text/CodePage.h"
#include "text/Text.h"

#include <algorithm>
#include <utility>

namespace turnpost {

namespace {

std::string wireLine(std::string_view text) {
    return toWireBytes(oneLine(text)) + "\r\n";
}

std::string trimmedLine(std::string_view text) {
    return trimSpaces(oneLine(text));
}

// In place, to avoid a second copy of a large file. Only "begin" lines can hold non-ASCII text, and
// no data line starts with "b", because length characters are "`" and "!" to "M". Only the last
// data line of a block can start with a period.
void blocksToWire(std::string& blocks) {
    for (size_t line = 0; line < blocks.size();
         line = std::min(blocks.find('\n', line), blocks.size() - 1) + 1) {
        if (blocks[line] == '.') {
            blocks.insert(line, 1, '.');
        } else if (blocks[line] == 'b') {
            const size_t length = blocks.find('\r', line) - line;
            blocks.replace(line, length, toWireBytes(blocks.substr(line, length)));
        }
    }
}

// Doubles every period at the start of a line.
std::string bodyToWire(std::string_view text) {
    std::string bytes;
    while (!text.empty()) {
        const size_t length = std::min(text.find('\n'), text.size() - 1) + 1;
        const std::string line = toWireBytes(text.substr(0, length));
        bytes.append(line.starts_with('.') ? "." : "").append(line);
        text.remove_prefix(length);
    }
    return bytes;
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

std::vector<std::string> messageText(const Settings& settings, const PlayerSlot& player,
                                     SendState& state) {
    std::vector<std::string> sends;
    sends.push_back(wireLine("From:" + settings.HostName + " <" + settings.HostEmail + ">"));
    sends.push_back(wireLine("To:" + player.PlayerName + " <" + player.PlayerEmail + ">"));
    if (!player.AltEmail.empty()) {
        sends.push_back(wireLine("CC:" + player.PlayerName + "<" + player.AltEmail + ">"));
    }
    sends.push_back(wireLine("Subject:" + state.PlayerSubject) + "\r\n");
    std::string& text = sends.emplace_back(std::exchange(state.AttachmentText, {}));
    blocksToWire(text);
    text.insert(0, bodyToWire(withCrLf(state.PlayerBody) + "\r\n\r\n"));
    text += "\r\n";
    sends.emplace_back(".\r\n");
    return sends;
}

} // namespace turnpost
