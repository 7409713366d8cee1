#include "Property.h"
#include "storage/GameDetailsFile.h"

using namespace turnpost;
using fuzz::require;

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

    using fuzz::holdAny;
    const std::vector<std::string> boxes(texts.begin() + 1, texts.end());
    const bool boxBreaks = holdAny(boxes, "\r\n");
    const bool rows = fuzz::mayHoldRows(message.MessageBody);
    // The last text may hold NULs.
    const bool nul = holdAny(texts, {"\0", 1});
    require(!nul || !whole, "a NUL is damage");
    require(equal || nul || holdAny(texts, "\""), "without double quotes everything comes back");
    require(equal || nul || holdAny(boxes, "\"") || boxBreaks || rows,
            "any body comes back that holds no row");
    require(equal || !whole || boxBreaks || rows, "no text of a box comes back wrong in silence");
    require(equal || !comesBack(game, message),
            "what will not come back is known when it is saved");
    return 0;
}
