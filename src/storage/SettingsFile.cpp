#include "storage/SettingsFile.h"

#include "platform/CodePage.h"
#include "platform/Files.h"
#include "platform/Folders.h"
#include "platform/Path.h"
#include "storage/QuotedLayout.h"
#include "storage/QuotedValues.h"

namespace turnpost {

namespace {

constexpr const char* fileName = "TURNPOST.INI";
constexpr const char* damagedFileName = "TURNPOST.BAD";

// How many values each line holds.
constexpr size_t valuesOfLine[] = {1, 1, 1, 2, 2, 2, 2, 1};
constexpr size_t valueCount = 12;

// The first `values.size()` fields in file order; the rest keep their start values.
Settings settingsOf(const std::vector<std::string>& values) {
    Settings settings;
    std::vector<std::string*> fields = {&settings.HostName, &settings.HostEmail,
                                        &settings.SmtpServer};
    for (StoredGame& slot : settings.StoredGames) {
        fields.push_back(&slot.StoredGameName);
        fields.push_back(&slot.StoredGameFile);
    }
    fields.push_back(&settings.DefaultGameFile);
    for (size_t i = 0; i < values.size(); ++i) {
        *fields[i] = values[i];
    }
    return settings;
}

std::vector<std::string> textsOf(const std::vector<QuotedValue>& values) {
    std::vector<std::string> texts;
    texts.reserve(values.size());
    for (const QuotedValue& value : values) {
        texts.push_back(value.text);
    }
    return texts;
}

// The values of the leading lines that hold as many values as they should. A line with more or
// fewer would put values into fields they do not belong to.
std::vector<std::string> wholeLines(const QuotedReading& reading) {
    std::vector<std::string> texts;
    size_t line = 0;
    for (const size_t expected : valuesOfLine) {
        std::vector<std::string> found;
        for (const QuotedValue& value : reading.values) {
            if (value.line == line) {
                found.push_back(value.text);
            }
        }
        const bool damaged = !reading.clean && line == reading.damagedLine;
        if (damaged || found.size() != expected) {
            break;
        }
        texts.insert(texts.end(), found.begin(), found.end());
        ++line;
    }
    return texts;
}

std::vector<std::string> separators(std::string_view lineEnd) {
    const std::string nextLine = std::string("\"").append(lineEnd).append("\"");
    std::vector<std::string> result;
    for (const size_t count : valuesOfLine) {
        result.insert(result.end(), count - 1, "\",\"");
        result.push_back(nextLine);
    }
    result.pop_back();
    return result;
}

} // namespace

SettingsReading parseSettings(std::string_view text) {
    const QuotedReading reading = readQuotedValues(text);
    if (reading.clean && reading.count == valueCount) {
        return {settingsOf(textsOf(reading.values)), false};
    }
    const bool dosLines = text.find("\r\n") != std::string_view::npos;
    if (const auto values = readByLayout(text, separators(dosLines ? "\r\n" : "\n"))) {
        return {settingsOf(*values), false};
    }
    return {settingsOf(wholeLines(reading)), true};
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

bool comesBack(const Settings& settings) {
    const SettingsReading reading =
        parseSettings(fromFileBytes(toFileBytes(printSettings(settings))));
    return !reading.damaged && reading.settings == settings;
}

SettingsFile::SettingsFile(const std::string& programFolder,
                           const std::string& configurationFolder) {
    filePath = joinPath(programFolder, fileName);
    if (!findPath(filePath) && !isFolderWritable(programFolder) && !configurationFolder.empty()) {
        filePath = joinPath(configurationFolder, fileName);
    }
}

SettingsFile::Outcome SettingsFile::read(Settings& settings) {
    settings = Settings();
    keepDamaged = false;
    if (!findPath(filePath)) {
        return Outcome::Missing;
    }
    keepDamaged = true;
    SettingsReading reading = parseSettings(fromFileBytes(readFile(filePath)));
    keepDamaged = reading.damaged;
    settings = std::move(reading.settings);
    return keepDamaged ? Outcome::Damaged : Outcome::Read;
}

void SettingsFile::write(const Settings& settings) {
    if (keepDamaged && findPath(filePath)) {
        replaceFile(joinPath(folderOfPath(filePath), damagedFileName), readFile(filePath));
        keepDamaged = false;
    }
    std::error_code error;
    std::filesystem::create_directories(toNativePath(folderOfPath(filePath)), error);
    replaceFile(filePath, toFileBytes(printSettings(settings)));
}

} // namespace turnpost
