#include "Property.h"
#include "storage/GameDetailsFile.h"

#include <algorithm>

using namespace turnpost;
using fuzz::require;

namespace {

bool holds(const std::string& text, const char* characters) {
    return text.find_first_of(characters) != std::string::npos;
}

} // namespace

// The first 16 bytes are the rows' flags; then come the body and the texts of the one-line boxes.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, size_t size) {
    if (size < rowCount) {
        return 0;
    }
    const auto texts = fuzz::textsOf(data + rowCount, size - rowCount, 5 + 4 * rowCount);
    GameDetails game{texts[1], texts[2], texts[3], unsetGameYear, {}};
    const MessageTemplate message{texts[4], texts[0]};
    for (size_t i = 0; i < rowCount; ++i) {
        const std::string* text = &texts[5 + 4 * i];
        game.rows.at(i) = {data[i] / 2, text[0], text[1], text[2], text[3], data[i] % 2 == 1};
    }
    const GameFileReading reading = parseGameDetails(printGameDetails(game, message));
    const bool whole = reading.damage.empty();
    const bool equal = whole && reading.content.game == game && reading.content.message == message;

    const auto boxes = texts.begin() + 1;
    const bool quotes = std::any_of(texts.begin(), texts.end(),
                                    [](const std::string& text) { return holds(text, "\""); });
    const bool boxQuotes =
        std::any_of(boxes, texts.end(), [](const std::string& text) { return holds(text, "\""); });
    const bool boxBreaks = std::any_of(boxes, texts.end(),
                                       [](const std::string& text) { return holds(text, "\r\n"); });
    require(equal || quotes, "without double quotes everything comes back");
    require(equal || boxQuotes || boxBreaks, "any body comes back");
    require(equal || !whole || boxBreaks, "no text of a box comes back wrong in silence");
    return 0;
}
