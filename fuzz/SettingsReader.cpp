#include "Property.h"
#include "platform/CodePage.h"
#include "storage/SettingsFile.h"

using namespace turnpost;
using fuzz::require;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, size_t size) {
    const SettingsReading reading = parseSettings(fromFileBytes(fuzz::bytesOf(data, size)));
    if (!reading.damaged) {
        const std::string text = printSettings(reading.settings);
        const SettingsReading again = parseSettings(text);
        const bool equal = !again.damaged && again.settings == reading.settings;
        const auto isBreak = [](char c) { return c == '\r' || c == '\n'; };
        require(equal || again.damaged || std::count_if(text.begin(), text.end(), isBreak) > 16,
                "settings once read are never changed in silence by saving them");
        require(equal || !comesBack(reading.settings),
                "what will not come back is known when it is saved");
    }
    return 0;
}
