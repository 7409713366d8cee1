#include "roster/HostFile.h"

#include "files/FileError.h"
#include "files/Files.h"
#include "text/Messages.h"
#include "text/Path.h"

#include <limits>

namespace turnpost {

namespace {

constexpr int firstYear = 2400;
constexpr size_t yearOffset = 12;
constexpr size_t extensionLength = 4;

} // namespace

std::int16_t readGameYear(const std::string& path) {
    const std::string bytes = readFile(path, yearOffset + 2);
    if (bytes.size() < yearOffset + 2) {
        throw FileError(path, messages::hostFileTooShort);
    }
    const int low = static_cast<unsigned char>(bytes[yearOffset]);
    const int high = static_cast<unsigned char>(bytes[yearOffset + 1]);
    const int year = high * 256 + low + firstYear;
    if (year > std::numeric_limits<std::int16_t>::max()) {
        throw FileError(path, messages::hostYearTooLarge);
    }
    return static_cast<std::int16_t>(year);
}

std::string turnFileName(const std::string& hostFileName, int row) {
    const size_t length = hostFileName.size();
    const std::string base =
        hostFileName.substr(0, length > extensionLength ? length - extensionLength : 0);
    return base + ".M" + std::to_string(row + 1);
}

void chooseHostFile(GameDetails& game, const std::string& folder, const std::string& hostFileName) {
    const std::int16_t year = readGameYear(joinPath(folder, hostFileName));
    game.HostFileName = hostFileName;
    game.GamePath = withSeparator(folder);
    game.GameYear = year;
    for (int i = 0; i < rowCount; ++i) {
        PlayerSlot& row = game.row(i);
        const std::string turnFile = turnFileName(hostFileName, i);
        row.Shown = findFile(game.GamePath + turnFile).has_value();
        if (row.Shown) {
            clearRow(row);
            row.IncludePlayer = 1;
            row.GameFile = turnFile;
        }
    }
}

} // namespace turnpost
