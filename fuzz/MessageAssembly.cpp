#include "Property.h"
#include "automation/UuDecoder.h"
#include "compose/MUUEncode.h"
#include "smtp/MessageText.h"
#include "text/CodePage.h"
#include "text/Text.h"

#include <algorithm>

using namespace turnpost;
using fuzz::require;

namespace {

// The message as a server reads it byte by byte (RFC 5321, 4.1.1.4 and 4.5.2).
std::string received(const std::string& wire) {
    require(wire.ends_with("\r\n.\r\n"), "a line of one period ends the message");
    const size_t end = wire.size() - 3;
    for (size_t i = 1; i < wire.size(); ++i) {
        require((wire[i - 1] == '\r') == (wire[i] == '\n'), "no CR or LF stands alone");
        require(i == end || wire[i] != '.' || wire[i - 1] != '\n' || wire[i + 1] == '.',
                "a period that starts a line is doubled, so no value ends the message early");
    }
    return automation::withoutDoubledPeriods(wire.substr(0, end));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, size_t size) {
    const auto texts = fuzz::textsOf(data, size, 9);
    const Settings settings{.HostName = texts[0], .HostEmail = texts[1]};
    const PlayerSlot player{.PlayerName = texts[2], .PlayerEmail = texts[3], .AltEmail = texts[4]};
    const std::string& fileName = texts[7];
    const std::string& fileBytes = texts[8];
    SendState state;
    state.PlayerSubject = texts[5];
    state.PlayerBody = texts[6];
    const std::string block = uuencodedBlock(fileName, fileBytes) + "\r\n";
    state.AttachmentText = block;

    std::string wire;
    for (const std::string& sent : messageText(settings, player, state)) {
        wire += sent;
    }
    const std::string text = received(wire);
    const size_t bodyStart = text.find("\r\n\r\n") + 4;
    require(bodyStart > 4 && std::count(text.begin(), text.begin() + static_cast<long>(bodyStart),
                                        '\n') == (player.AltEmail.empty() ? 4 : 5),
            "no value adds a line to the header");
    const std::string body = toWireBytes(withCrLf(state.PlayerBody)) + "\r\n\r\n";
    require(text.substr(bodyStart) == body + toWireBytes(block) + "\r\n",
            "body and blocks arrive unchanged");
    const auto files = automation::decodeUuBlocks(block);
    require(files && files->size() == 1 && files->at(0).name == oneLine(fileName) &&
                files->at(0).bytes == fileBytes,
            "a block decodes to its file");
    const auto lineEnds = std::count(block.begin(), block.end(), '\n');
    require(static_cast<size_t>(lineEnds) == fileBytes.size() / 45 + 5,
            "a last line that is not full, even if empty; begin, terminator, end, empty line");
    return 0;
}
