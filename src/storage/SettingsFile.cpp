#include "storage/SettingsFile.h"

#include "files/Files.h"
#include "files/Folders.h"
#include "storage/DividedLines.h"
#include "storage/OwnFile.h"
#include "storage/QuotedValues.h"
#include "text/CodePage.h"
#include "text/Path.h"

#include <array>
#include <vector>

namespace turnpost {

namespace {

constexpr const char* fileName = "TURNPOST.INI";
constexpr const char* damagedFileName = "TURNPOST.BAD";

constexpr LineLayout oneText{0, 1};
constexpr LineLayout twoTexts{0, 2};
constexpr std::array layout = {oneText,  oneText,  oneText,  twoTexts,
                               twoTexts, twoTexts, twoTexts, oneText};
constexpr size_t valueCount = [] {
    size_t count = 0;
    for (const LineLayout& line : layout) {
        count += line.numbers + line.texts;
    }
    return count;
}();

// The first `values.size()` fields in file order; the rest keep their start values.
Settings settingsOf(const QuotedValues& values) {
    Settings settings;
    std::vector<std::string*> fields = {&settings.HostName, &settings.HostEmail,
                                        &settings.SmtpServer};
    for (StoredGame& slot : settings.StoredGames) {
        fields.push_back(&slot.StoredGameName);
        fields.push_back(&slot.StoredGameFile);
    }
    fields.push_back(&settings.DefaultGameFile);
    for (size_t i = 0; i < values.size(); ++i) {
        *fields[i] = values[i].text;
    }
    return settings;
}

} // namespace

SettingsReading parseSettings(std::string_view text) {
    const size_t nul = text.find('\0');
    const QuotedReading inOrder = readInOrder(text, layout);
    if (inOrder.whole && nul == std::string_view::npos) {
        return {settingsOf(inOrder.values), false};
    }
    const QuotedValues values = readByLines(linesOf(text.substr(0, nul)), layout);
    return {settingsOf(values), values.size() < valueCount || nul != std::string_view::npos};
}

std::string printSettings(const Settings& settings) {
    const std::string lineEnd = "\r\n";
    std::string text = quotedText(settings.HostName) + lineEnd + quotedText(settings.HostEmail) +
                       lineEnd + quotedText(settings.SmtpServer) + lineEnd;
    for (const StoredGame& slot : settings.StoredGames) {
        text += quotedText(slot.StoredGameName) + "," + quotedText(slot.StoredGameFile) + lineEnd;
    }
    return text + quotedText(settings.DefaultGameFile) + lineEnd;
}

bool survivesRoundTrip(const Settings& settings) {
    const SettingsReading reading =
        parseSettings(fromFileBytes(toFileBytes(printSettings(settings))));
    return !reading.damaged && reading.settings == settings;
}

SettingsFile::SettingsFile(const std::string& programFolder,
                           const std::string& configurationFolder) {
    filePath_ = joinPath(programFolder, fileName);
    const bool isOurs = nameOfPath(programFolder) != "bin" && isFolderWritable(programFolder);
    if (!findPath(filePath_) && !isOurs && !configurationFolder.empty()) {
        filePath_ = joinPath(configurationFolder, fileName);
    }
}

SettingsFile::Outcome SettingsFile::read(Settings& settings) {
    settings = Settings();
    keepDamaged_ = false;
    if (!findPath(filePath_)) {
        return Outcome::Missing;
    }
    keepDamaged_ = true;
    std::string bytes = readFile(filePath_, maxOwnFileBytes + 1);
    const bool tooLarge = bytes.size() > maxOwnFileBytes;
    if (tooLarge) {
        // Cut at a line end, never inside a UTF-8 character.
        bytes.resize(bytes.rfind('\n') + 1);
    }
    SettingsReading reading = parseSettings(fromFileBytes(bytes));
    keepDamaged_ = reading.damaged || tooLarge;
    settings = std::move(reading.settings);
    return keepDamaged_ ? Outcome::Damaged : Outcome::Read;
}

std::string SettingsFile::copyPath() const {
    const std::string first = joinPath(folderOfPath(filePath_), damagedFileName);
    std::string path = first;
    for (int number = 2; findPath(path); ++number) {
        path = first + std::to_string(number);
    }
    return path;
}

void SettingsFile::write(const Settings& settings) {
    if (keepDamaged_ && findPath(filePath_)) {
        replaceFile(copyPath(), readFile(filePath_));
        keepDamaged_ = false;
    }
    std::error_code error;
    std::filesystem::create_directories(toNativePath(folderOfPath(filePath_)), error);
    writeOwnFile(filePath_, printSettings(settings));
}

} // namespace turnpost
