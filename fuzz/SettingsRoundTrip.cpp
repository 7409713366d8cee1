#include "Property.h"
#include "storage/SettingsFile.h"

using namespace turnpost;
using fuzz::require;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, size_t size) {
    const auto texts = fuzz::textsOf(data, size, 12);
    Settings settings{texts[0], texts[1], texts[2], {}, texts[11]};
    for (size_t i = 0; i < 4; ++i) {
        settings.StoredGames.at(i) = {texts[3 + 2 * i], texts[4 + 2 * i]};
    }
    const SettingsReading reading = parseSettings(printSettings(settings));
    const bool equal = !reading.damaged && reading.settings == settings;
    // The last text may hold NULs.
    const bool nul = fuzz::holdAny(texts, {"\0", 1});
    require(!nul || reading.damaged, "a NUL is damage");
    require(equal || nul || fuzz::holdAny(texts, "\""), "only double quotes can damage a file");
    require(equal || reading.damaged || fuzz::holdAny(texts, "\r\n"),
            "no text without line breaks comes back wrong in silence");
    require(equal || !comesBack(settings), "what will not come back is known when it is saved");
    return 0;
}
