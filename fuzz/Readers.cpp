#include "Property.h"
#include "storage/GameDetailsFile.h"
#include "storage/SettingsFile.h"
#include "text/CodePage.h"
#include "text/Text.h"

#include <iconv.h>
#include <optional>
#include <regex>

using namespace turnpost;
using fuzz::require;

namespace {

// The bytes as the system converts them to another encoding; nothing if they are invalid.
std::optional<std::string> converted(std::string bytes, const char* from, const char* to) {
    const iconv_t converter = iconv_open(to, from);
    std::string result(bytes.size() * 4, '\0');
    char* in = bytes.data();
    char* out = result.data();
    size_t inLeft = bytes.size();
    size_t outLeft = result.size();
    const bool good = iconv(converter, &in, &inLeft, &out, &outLeft) != static_cast<size_t>(-1);
    iconv_close(converter);
    result.resize(result.size() - outLeft);
    return good ? std::optional(result) : std::nullopt;
}

void checkCodePages(const std::string& bytes) {
    const std::string text = fromWindows1252(bytes);
    require(toWindows1252(text) == bytes, "every byte of the code page survives a round trip");
    const auto expected = converted(bytes, "WINDOWS-1252", "UTF-8");
    require(!expected || text == *expected, "the system agrees on the characters");
    std::string again;
    size_t points = 0;
    for (size_t position = 0; position < bytes.size(); ++points) {
        std::string character;
        const char32_t point = nextCodePoint(bytes, position);
        appendUtf8(character, point);
        require(hasWireBytes(point) == (fromWireBytes(toWireBytes(character)) == character),
                "an address goes out as shown or not at all");
        again += character;
    }
    require(isUtf8(bytes) == converted(bytes, "UTF-8", "UTF-32LE").has_value(),
            "the system agrees on what is UTF-8");
    require((again == bytes) == isUtf8(bytes), "only invalid UTF-8 changes");
    require(toWindows1252(bytes).size() == points, "one byte per character, none lost");
    for (const std::string& good : {text, again, fromFileBytes(bytes), fromWireBytes(bytes)}) {
        require(isUtf8(good), "any bytes become well-formed text");
    }
    if (isUtf8(bytes) && !bytes.starts_with("\xEF\xBB\xBF")) {
        require(fromFileBytes(toFileBytes(bytes)) == bytes, "a file keeps every character");
    }
    require(foldCase(foldCase(bytes)) == foldCase(bytes), "folding twice changes nothing more");
}

// A body may be read as a shorter body and a row, if a line of it ends in a double quote and the
// next line begins with a number.
bool mayHoldRows(const std::string& body) {
    static const std::regex quoteThenNumber("\" *[\r\n][ \r\n]*[-+0-9]");
    return std::regex_search(body, quoteThenNumber);
}

// What must hold for a file of any texts. Takes a file without texts, the body among the texts, and
// the result of reading the file.
void checkReadBack(const std::string& file, const std::string& empty, const std::string& body,
                   bool equal, bool damaged) {
    const auto added = [&](char c) {
        using std::ranges::count;
        return count(file, c) > count(empty, c) + count(body, c);
    };
    const bool nul = file.find('\0') != std::string::npos;
    const bool quotes = added('"');
    const bool breaks = added('\r') || added('\n');
    const bool rows = mayHoldRows(body);
    require(damaged || !nul, "a NUL is damage");
    require(equal || nul || quotes || rows || (breaks && body.find('"') != std::string::npos),
            "what holds neither double quotes nor rows comes back");
    require(equal || damaged || breaks || rows, "no wrong text of a box comes back unreported");
}

void checkSettings(const Settings& settings) {
    const std::string file = printSettings(settings);
    const auto [read, damaged] = parseSettings(file);
    checkReadBack(file, printSettings({}), {}, !damaged && read == settings, damaged);
}

void checkGame(const GameDetails& game, const MessageTemplate& message) {
    const std::string file = printGameDetails(game, message);
    const auto [read, damage] = parseGameDetails(file);
    const bool equal = !damage && read.game == game && read.message == message;
    checkReadBack(file, printGameDetails({}, {}), message.MessageBody, equal, damage.has_value());
}

// Takes the input as the bytes of a file that the host opens and saves again.
void checkReading(const std::string& bytes) {
    const std::string text = fromFileBytes(bytes);
    if (const SettingsReading settings = parseSettings(text); !settings.damaged) {
        checkSettings(settings.settings);
    }
    if (GameFileReading reading = parseGameDetails(text); !reading.damage) {
        auto& [game, message] = reading.content;
        removeLineBreaks(game);
        message.MessageSubject = oneLine(message.MessageSubject);
        checkGame(game, message);
    }
}

// Takes the input as the texts of both files. Its first 16 bytes are also the rows' flags.
void checkWriting(const std::uint8_t* data, size_t size) {
    const auto few = fuzz::textsOf(data, size, 12);
    Settings settings{
        .HostName = few[0], .HostEmail = few[1], .SmtpServer = few[2], .DefaultGameFile = few[11]};
    for (size_t i = 0; i < 4; ++i) {
        settings.StoredGames.at(i) = {few[3 + 2 * i], few[4 + 2 * i]};
    }
    checkSettings(settings);
    if (size < rowCount) {
        return;
    }
    const auto texts = fuzz::textsOf(data + rowCount, size - rowCount, 5 + 4 * rowCount);
    GameDetails game{.GameName = texts[1], .GamePath = texts[2], .HostFileName = texts[3]};
    for (size_t i = 0; i < rowCount; ++i) {
        const std::string* text = &texts[5 + 4 * i];
        game.rows.at(i) = {.IncludePlayer = data[i] / 2,
                           .PlayerName = text[0],
                           .PlayerEmail = text[1],
                           .AltEmail = text[2],
                           .GameFile = text[3],
                           .Shown = data[i] % 2 == 1};
    }
    checkGame(game, {texts[4], texts[0]});
}

} // namespace

// Every function that reads files, of others or of the program, gets every input.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, size_t size) {
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    checkCodePages(bytes);
    checkReading(bytes);
    checkWriting(data, size);
    return 0;
}
