#include "storage/GameDetailsFile.h"

#include "files/Files.h"
#include "storage/DividedLines.h"
#include "storage/OwnFile.h"
#include "storage/QuotedValues.h"
#include "text/CodePage.h"
#include "text/Messages.h"
#include "text/Text.h"

#include <algorithm>
#include <array>
#include <vector>

namespace turnpost {

namespace {

constexpr size_t headValues = 5;
constexpr LineLayout rowLine{2, 4};
constexpr size_t valuesPerRow = rowLine.numbers + rowLine.texts;
constexpr size_t valueCount = headValues + rowCount * valuesPerRow;
constexpr const char* lineEnd = "\r\n";
constexpr const char* extension = ".NTP";

constexpr std::array<LineLayout, headValues + rowCount> layout = [] {
    std::array<LineLayout, headValues + rowCount> lines{};
    std::fill(lines.begin() + headValues, lines.end(), rowLine);
    return lines;
}();

// Fills the content from 101 values. Returns what is wrong with them, if anything.
std::optional<Refusal> take(const QuotedValues& values, GameFileContent& content) {
    GameDetails& game = content.game;
    game.GameName = values[0].text;
    game.GamePath = values[1].text;
    game.HostFileName = values[2].text;
    content.message.MessageSubject = values[3].text;
    content.message.MessageBody = values[4].text;
    for (size_t i = 0; i < rowCount; ++i) {
        const QuotedValue* value = &values[headValues + i * valuesPerRow];
        const auto shown = value[0].number();
        const auto include = value[1].number();
        if (!shown || !include) {
            return Refusal{messages::flagIsNoNumber(static_cast<int>(i))};
        }
        PlayerSlot& row = game.rows[i];
        row.Shown = *shown == 1;
        row.IncludePlayer = *include;
        row.PlayerName = value[2].text;
        row.PlayerEmail = value[3].text;
        row.AltEmail = value[4].text;
        row.GameFile = value[5].text;
    }
    return std::nullopt;
}

// Index of the first line after the body: the only one that follows the end of a quoted text and
// starts 16 row lines. 0 when there is none, or more than one.
size_t firstRowLine(const std::vector<std::string_view>& lines) {
    size_t found = 0;
    size_t rows = 0;
    for (size_t i = lines.size(); i >= headValues; --i) {
        const std::string_view line = withoutLineEnd(lines[i - 1]);
        const bool bodyMayEnd = line.ends_with('"') && (i > headValues || line.size() > 1);
        if (rows >= rowCount && bodyMayEnd) {
            if (found != 0) {
                return 0;
            }
            found = i;
        }
        rows = isLine(lines[i - 1], rowLine) ? rows + 1 : 0;
    }
    return found;
}

// Empty when the rows cannot be located.
QuotedValues valuesByLines(std::string_view text) {
    auto lines = linesOf(text);
    const size_t firstRow = firstRowLine(lines);
    if (firstRow == 0) {
        return {};
    }
    const char* body = lines[headValues - 1].data();
    lines[headValues - 1] = {body, static_cast<size_t>(lines[firstRow].data() - body)};
    lines.erase(lines.begin() + headValues, lines.begin() + static_cast<std::ptrdiff_t>(firstRow));
    return readByLines(lines, layout);
}

std::string withoutEnd(const std::string& name, size_t length) {
    return name.substr(0, name.size() > length ? name.size() - length : 0);
}

} // namespace

GameFileReading parseGameDetails(std::string_view text) {
    GameFileReading reading;
    if (text.find('\0') != std::string_view::npos) {
        reading.damage = Refusal{messages::notWholeGameFile};
        return reading;
    }
    const QuotedReading inOrder = readInOrder(text, layout);
    const bool all = inOrder.values.size() == valueCount;
    reading.damage =
        all ? take(inOrder.values, reading.content) : Refusal{messages::notWholeGameFile};
    if (!reading.damage && !inOrder.whole) {
        reading.damage = Refusal{messages::severalWaysToRead};
    }
    if (reading.damage) {
        const QuotedValues values = valuesByLines(text);
        if (values.size() == valueCount) {
            reading.damage = take(values, reading.content);
        }
    }
    if (text.find(lineEnd) == std::string_view::npos) {
        // The file came through a system with other line ends.
        reading.content.message.MessageBody = withCrLf(reading.content.message.MessageBody);
    }
    return reading;
}

GameFileReading readGameDetails(const std::string& path) {
    const std::string bytes = readFile(path, maxOwnFileBytes + 1);
    if (bytes.size() > maxOwnFileBytes) {
        return {{}, Refusal{messages::ownFileTooLarge}};
    }
    return parseGameDetails(fromFileBytes(bytes));
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

void writeGameDetails(const std::string& path, const GameDetails& game,
                      const MessageTemplate& message) {
    writeOwnFile(path, printGameDetails(game, message));
}

bool survivesRoundTrip(const GameDetails& game, const MessageTemplate& message) {
    GameFileReading reading =
        parseGameDetails(fromFileBytes(toFileBytes(printGameDetails(game, message))));
    reading.content.game.GameYear = game.GameYear;
    return !reading.damage && reading.content.game == game && reading.content.message == message;
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
