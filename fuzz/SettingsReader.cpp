#include "Property.h"
#include "platform/CodePage.h"
#include "storage/SettingsFile.h"

using namespace turnpost;
using fuzz::require;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, size_t size) {
    const SettingsReading reading = parseSettings(fromFileBytes(fuzz::bytesOf(data, size)));
    if (!reading.damaged) {
        const SettingsReading again = parseSettings(printSettings(reading.settings));
        require(again.damaged || again.settings == reading.settings,
                "settings once read are never changed in silence by saving them");
    }
    return 0;
}
