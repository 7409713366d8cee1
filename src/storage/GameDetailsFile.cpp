#include "storage/GameDetailsFile.h"

#include "platform/CodePage.h"
#include "platform/Messages.h"
#include "platform/Text.h"
#include "storage/QuotedLayout.h"
#include "storage/QuotedValues.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <vector>

namespace turnpost {

namespace {

constexpr size_t headValues = 5;
constexpr size_t valuesPerRow = 6;
constexpr size_t valueCount = headValues + rowCount * valuesPerRow;
constexpr const char* lineEnd = "\r\n";
constexpr const char* extension = ".NTP";

using Values = std::vector<QuotedValue>;

std::optional<int> numberOf(const QuotedValue& value) {
    int number = 0;
    const char* end = value.text.data() + value.text.size();
    const auto [stop, error] = std::from_chars(value.text.data(), end, number);
    const bool digitsOnly = !value.text.empty() && value.text[0] != '-';
    if (value.quoted || !digitsOnly || error != std::errc() || stop != end) {
        return std::nullopt;
    }
    return number;
}

// Fills the content from 101 values; says what is wrong with them.
std::string take(const Values& values, GameFileContent& content) {
    GameDetails& game = content.game;
    game.GameName = values[0].text;
    game.GamePath = values[1].text;
    game.HostFileName = values[2].text;
    content.message.MessageSubject = values[3].text;
    content.message.MessageBody = values[4].text;
    for (size_t i = 0; i < rowCount; ++i) {
        const QuotedValue* value = &values[headValues + i * valuesPerRow];
        const auto shown = numberOf(value[0]);
        const auto include = numberOf(value[1]);
        if (!shown || !include) {
            return messages::flagIsNoNumber(static_cast<int>(i));
        }
        PlayerSlot& row = game.rows[i];
        row.Shown = *shown == 1;
        row.IncludePlayer = *include;
        row.PlayerName = value[2].text;
        row.PlayerEmail = value[3].text;
        row.AltEmail = value[4].text;
        row.GameFile = value[5].text;
    }
    return {};
}

std::vector<std::string_view> linesOf(std::string_view text, std::string_view end) {
    std::vector<std::string_view> lines;
    size_t next = 0;
    while ((next = text.find(end)) != std::string_view::npos) {
        lines.push_back(text.substr(0, next));
        text.remove_prefix(next + end.size());
    }
    if (!text.empty()) {
        lines.push_back(text);
    }
    while (!lines.empty() && lines.back().empty()) {
        lines.pop_back();
    }
    return lines;
}

// Appends what stands between the first and the last quote of a text; false without those.
bool takeQuoted(std::string_view text, Values& values) {
    if (text.size() < 2 || text.front() != '"' || text.back() != '"') {
        return false;
    }
    values.push_back({std::string(text.substr(1, text.size() - 2)), 0, true});
    return true;
}

// Appends the six values of a row's line; false when it is none, or can be divided in two ways.
bool takeRow(std::string_view line, Values& values) {
    for (int flag = 0; flag < 2; ++flag) {
        const size_t comma = std::min(line.find(','), line.size());
        values.push_back({std::string(line.substr(0, comma)), 0, false});
        line.remove_prefix(std::min(comma + 1, line.size()));
    }
    const auto texts = readByLayout(line, {"\",\"", "\",\"", "\",\""});
    for (size_t i = 0; texts && i < texts->size(); ++i) {
        values.push_back({(*texts)[i], 0, true});
    }
    return texts.has_value();
}

std::optional<Values> valuesByLayout(std::string_view text, std::string_view end) {
    const auto lines = linesOf(text, end);
    if (lines.size() < headValues + rowCount) {
        return std::nullopt;
    }
    Values values;
    const std::string_view& body = lines[headValues - 1];
    const std::string_view& bodyEnd = lines[lines.size() - rowCount - 1];
    bool good = true;
    for (size_t i = 0; i + 1 < headValues; ++i) {
        good = good && takeQuoted(lines[i], values);
    }
    const char* bodyStop = bodyEnd.data() + bodyEnd.size();
    good = good && takeQuoted({body.data(), static_cast<size_t>(bodyStop - body.data())}, values);
    for (size_t i = lines.size() - rowCount; good && i < lines.size(); ++i) {
        good = takeRow(lines[i], values);
    }
    return good ? std::optional(values) : std::nullopt;
}

std::string withoutEnd(const std::string& name, size_t length) {
    return name.substr(0, name.size() > length ? name.size() - length : 0);
}

} // namespace

GameFileReading parseGameDetails(std::string_view text) {
    const bool dosLines = text.find(lineEnd) != std::string_view::npos;
    const QuotedReading inOrder = readQuotedValues(text);
    const bool whole = inOrder.clean && inOrder.count == valueCount;
    GameFileReading reading;
    reading.damage = whole ? take(inOrder.values, reading.content)
                           : messages::wrongValueCount(inOrder.count, valueCount);
    if (!reading.damage.empty()) {
        if (const auto values = valuesByLayout(text, dosLines ? lineEnd : "\n")) {
            reading.content = {};
            reading.damage = take(*values, reading.content);
        }
    }
    if (!dosLines) {
        // A file that came through a system with other line ends.
        reading.content.message.MessageBody = withCrLf(reading.content.message.MessageBody);
    }
    return reading;
}

std::string printGameDetails(const GameDetails& game, const MessageTemplate& message) {
    std::string text;
    for (const std::string* value : {&game.GameName, &game.GamePath, &game.HostFileName,
                                     &message.MessageSubject, &message.MessageBody}) {
        text += quotedText(*value) + lineEnd;
    }
    for (const PlayerSlot& row : game.rows) {
        text += std::to_string(row.Shown ? 1 : 0) + "," + std::to_string(row.IncludePlayer);
        for (const std::string* value :
             {&row.PlayerName, &row.PlayerEmail, &row.AltEmail, &row.GameFile}) {
            text += "," + quotedText(*value);
        }
        text += lineEnd;
    }
    return text;
}

bool comesBack(const GameDetails& game, const MessageTemplate& message) {
    GameFileReading reading =
        parseGameDetails(fromFileBytes(toFileBytes(printGameDetails(game, message))));
    reading.content.game.GameYear = game.GameYear;
    return reading.damage.empty() && reading.content.game == game &&
           reading.content.message == message;
}

std::string storedGameFile(const GameDetails& game) {
    return game.GamePath + withoutEnd(game.HostFileName, 4) + extension;
}

std::string gameDetailsFile(const GameDetails& game) {
    const std::string& turnFile = game.rows[1].GameFile;
    return turnFile.size() < 3 ? storedGameFile(game)
                               : game.GamePath + withoutEnd(turnFile, 3) + extension;
}

} // namespace turnpost
