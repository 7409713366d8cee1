#include "Property.h"
#include "fakes/TempFolder.h"
#include "platform/FileError.h"
#include "roster/HostFile.h"

using namespace turnpost;
using fuzz::require;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, size_t size) {
    static const TempFolder folder;
    folder.write("GAME.HST", fuzz::bytesOf(data, size));
    const int years = size < 14 ? -1 : data[12] | data[13] << 8;
    try {
        const int year = readGameYear(folder.path("GAME.HST"));
        require(years >= 0 && year == 2400 + years, "the year is in bytes 12 and 13");
    } catch (const FileError& error) {
        require(!error.reason().empty(), "a refusal says why");
        require(years < 0 || 2400 + years > 32767, "only short files and far years are refused");
    }
    return 0;
}
