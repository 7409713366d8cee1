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
    require(equal || reading.damaged, "no text comes back wrong in silence");
    bool quotes = false;
    for (const std::string& text : texts) {
        quotes = quotes || text.find('"') != std::string::npos;
    }
    require(equal || quotes, "only double quotes can damage a file");
    return 0;
}
