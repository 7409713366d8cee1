#include "Property.h"
#include "compose/MUUEncode.h"
#include "desk/UuDecoder.h"
#include "platform/CodePage.h"
#include "platform/Text.h"
#include "smtp/MessageText.h"

#include <algorithm>

using namespace turnpost;
using fuzz::require;

namespace {

bool isOneLine(const std::string& text) {
    return text.ends_with("\r\n") && text.find_first_of("\r\n") == text.size() - 2;
}

// The lines of a server that takes the message byte by byte (RFC 5321, 4.1.1.4 and 4.5.2): all up
// to the line of one period, leading periods undoubled. Nothing may follow that line.
std::vector<std::string> received(const std::string& wire) {
    std::vector<std::string> lines;
    for (size_t from = 0; from < wire.size();) {
        const size_t end = wire.find("\r\n", from);
        require(end != std::string::npos, "every line ends in CR LF");
        std::string line = wire.substr(from, end - from);
        from = end + 2;
        require(line.find_first_of("\r\n") == std::string::npos, "no CR or LF stands alone");
        if (line == ".") {
            require(from == wire.size(), "no value ends the message early");
            return lines;
        }
        lines.push_back(line.starts_with(".") ? line.substr(1) : line);
    }
    require(false, "the message ends");
    return lines;
}

std::string joined(const std::vector<std::string>& lines, size_t from) {
    std::string text;
    for (size_t i = from; i < lines.size(); ++i) {
        text += lines[i] + "\r\n";
    }
    return text;
}

size_t checkHeader(const std::vector<std::string>& lines, bool withCopy) {
    std::vector<std::string> fields = {"From:", "To:", "Subject:"};
    if (withCopy) {
        fields.insert(fields.begin() + 2, "CC:");
    }
    require(lines.size() > fields.size(), "the header is whole");
    for (size_t i = 0; i < fields.size(); ++i) {
        require(lines[i].starts_with(fields[i]), "the header's lines are the four fields in order");
    }
    require(lines[fields.size()].empty(), "an empty line ends the header");
    return fields.size() + 1;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, size_t size) {
    const auto texts = fuzz::textsOf(data, size, 9);
    const Settings settings{texts[0], texts[1], "", {}, ""};
    const PlayerSlot player{1, texts[2], texts[3], texts[4], "", true};
    const std::string& fileName = texts[7];
    const std::string& fileBytes = texts[8];
    SendState state;
    state.PlayerSubject = texts[5];
    state.PlayerBody = texts[6];
    const std::string block = uuencodedBlock(fileName, fileBytes) + "\r\n";
    state.AttachmentText = block;

    require(isOneLine(heloLine(settings)) && heloLine(settings).starts_with("HELO "), "one HELO");
    require(isOneLine(mailLine(settings)) && mailLine(settings).starts_with("MAIL FROM:"),
            "one MAIL FROM");
    require(isOneLine(recipientLine(player)) && recipientLine(player).starts_with("RCPT TO:"),
            "one RCPT TO");

    std::string wire;
    for (const std::string& sent : messageText(settings, player, state)) {
        wire += sent;
    }
    const auto lines = received(wire);
    const size_t bodyStart = checkHeader(lines, !player.AltEmail.empty());
    const std::string body = toWireBytes(withCrLf(state.PlayerBody)) + "\r\n\r\n";
    require(joined(lines, bodyStart) == body + toWireBytes(block) + "\r\n",
            "body and blocks arrive as they were");
    const auto files = desk::decodeUuBlocks(block);
    require(files && files->size() == 1 && files->at(0).name == oneLine(fileName) &&
                files->at(0).bytes == fileBytes,
            "a block decodes to its file");
    const auto lineEnds = std::count(block.begin(), block.end(), '\n');
    require(static_cast<size_t>(lineEnds) == fileBytes.size() / 45 + 5,
            "a last line that is not full, even if empty; begin, terminator, end, empty line");
    return 0;
}
