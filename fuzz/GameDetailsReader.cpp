#include "Property.h"
#include "platform/CodePage.h"
#include "platform/Text.h"
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
    message.MessageSubject = oneLine(message.MessageSubject);
    const GameFileReading again = parseGameDetails(printGameDetails(game, message));
    const bool equal = again.content.game == game && again.content.message == message;
    require(equal || !again.damage.empty() || fuzz::mayHoldRows(message.MessageBody),
            "a game once read is never changed in silence by saving it");
    require((equal && again.damage.empty()) || !comesBack(game, message),
            "what will not come back is known when it is saved");
    return 0;
}
