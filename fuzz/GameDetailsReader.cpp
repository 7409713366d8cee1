#include "Property.h"
#include "platform/CodePage.h"
#include "storage/GameDetailsFile.h"

using namespace turnpost;
using fuzz::require;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, size_t size) {
    GameFileReading reading = parseGameDetails(fromFileBytes(fuzz::bytesOf(data, size)));
    if (!reading.damage.empty()) {
        return 0;
    }
    // What the program does with it when the host opens the file and saves it again.
    auto& [game, message] = reading.content;
    removeLineBreaks(game);
    const GameFileReading again = parseGameDetails(printGameDetails(game, message));
    require(!again.damage.empty() ||
                (again.content.game == game && again.content.message == message) ||
                !comesBack(game, message),
            "a game once read is never changed in silence by saving it");
    return 0;
}
