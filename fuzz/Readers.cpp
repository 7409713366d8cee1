#include "Property.h"
#include "fakes/TempFolder.h"
#include "platform/CodePage.h"
#include "platform/FileError.h"
#include "platform/Text.h"
#include "roster/HostFile.h"
#include "storage/GameDetailsFile.h"
#include "storage/SettingsFile.h"

#include <iconv.h>
#include <optional>

using namespace turnpost;
using fuzz::require;

namespace {

using Texts = std::vector<std::string>;

bool holdAny(const Texts& texts, std::string_view characters) {
    return std::any_of(texts.begin(), texts.end(), [&](const std::string& text) {
        return text.find_first_of(characters) != std::string::npos;
    });
}

// The system's own opinion: the bytes in another encoding; nothing when they are none of this one.
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
    require(!expected || text == *expected, "bytes are the characters that the system knows");
    std::string again;
    size_t points = 0;
    for (size_t position = 0; position < bytes.size(); ++points) {
        appendUtf8(again, nextCodePoint(bytes, position));
    }
    require(isUtf8(bytes) == converted(bytes, "UTF-8", "UTF-32LE").has_value(),
            "UTF-8 is what the system takes for it");
    require((again == bytes) == isUtf8(bytes), "only what is no UTF-8 changes");
    require(toWindows1252(bytes).size() == points, "one byte a character, none lost");
    for (const std::string& good : {text, again, fromFileBytes(bytes), fromWireBytes(bytes)}) {
        require(isUtf8(good), "any bytes become well-formed text");
    }
    if (isUtf8(bytes) && !bytes.starts_with("\xEF\xBB\xBF")) {
        require(fromFileBytes(toFileBytes(bytes)) == bytes, "a file keeps every character");
    }
    require(foldCase(foldCase(bytes)) == foldCase(bytes), "folding twice changes nothing more");
}

void checkHostYear(const std::string& bytes) {
    static const TempFolder folder;
    folder.write("GAME.HST", bytes);
    const auto byteAt = [&](size_t i) { return static_cast<unsigned char>(bytes[i]); };
    const int years = bytes.size() < 14 ? -1 : byteAt(12) | byteAt(13) << 8;
    try {
        const int year = readGameYear(folder.path("GAME.HST"));
        require(years >= 0 && year == 2400 + years, "the year is in bytes 12 and 13");
    } catch (const FileError&) {
        require(years < 0 || 2400 + years > 32767, "only short files and far years are refused");
    }
}

void checkSettings(const Settings& settings) {
    Texts texts = {settings.HostName, settings.HostEmail, settings.SmtpServer,
                   settings.DefaultGameFile};
    for (const StoredGame& game : settings.StoredGames) {
        texts.insert(texts.end(), {game.StoredGameName, game.StoredGameFile});
    }
    const SettingsReading reading = parseSettings(printSettings(settings));
    const bool equal = !reading.damaged && reading.settings == settings;
    const bool nul = holdAny(texts, {"\0", 1});
    require(!nul || reading.damaged, "a NUL is damage");
    require(equal || nul || holdAny(texts, "\""), "only double quotes can damage a file");
    require(equal || reading.damaged || holdAny(texts, "\r\n"),
            "no text without line breaks comes back wrong in silence");
    require(equal || !comesBack(settings), "what will not come back is known when it is saved");
}

// A body in which a line that ends in a double quote is followed by one that begins with a number
// may be read as a shorter body and a row.
bool mayHoldRows(const std::string& body) {
    for (size_t quote = body.find('"'); quote != std::string::npos;
         quote = body.find('"', quote + 1)) {
        const size_t lineEnd = body.find_first_not_of(' ', quote + 1);
        const size_t next = body.find_first_not_of(" \r\n", quote + 1);
        if (next != std::string::npos && (body[lineEnd] == '\r' || body[lineEnd] == '\n') &&
            std::string_view("-+0123456789").find(body[next]) != std::string_view::npos) {
            return true;
        }
    }
    return false;
}

void checkGame(const GameDetails& game, const MessageTemplate& message) {
    Texts boxes = {game.GameName, game.GamePath, game.HostFileName, message.MessageSubject};
    for (const PlayerSlot& row : game.rows) {
        boxes.insert(boxes.end(), {row.PlayerName, row.PlayerEmail, row.AltEmail, row.GameFile});
    }
    const GameFileReading reading = parseGameDetails(printGameDetails(game, message));
    const bool whole = reading.damage.empty();
    const bool equal = whole && reading.content.game == game && reading.content.message == message;
    const bool bodyQuotes = message.MessageBody.find('"') != std::string::npos;
    const bool rows = mayHoldRows(message.MessageBody);
    const bool breaks = holdAny(boxes, "\r\n");
    const bool quotes = holdAny(boxes, "\"");
    // None but the last text holds NULs.
    const bool nul = boxes.back().find('\0') != std::string::npos;
    require(!nul || !whole, "a NUL is damage");
    require(equal || nul || quotes || bodyQuotes, "without double quotes everything comes back");
    require(equal || nul || quotes || breaks || rows, "any body comes back that holds no row");
    require(equal || !whole || breaks || rows, "no text of a box comes back wrong in silence");
    require(equal || !comesBack(game, message),
            "what will not come back is known when it is saved");
}

// The input as a file's bytes, and what the program does with it when the host opens the file and
// saves it again.
void checkReading(const std::string& bytes) {
    const std::string text = fromFileBytes(bytes);
    if (const SettingsReading settings = parseSettings(text); !settings.damaged) {
        checkSettings(settings.settings);
    }
    if (GameFileReading reading = parseGameDetails(text); reading.damage.empty()) {
        auto& [game, message] = reading.content;
        removeLineBreaks(game);
        message.MessageSubject = oneLine(message.MessageSubject);
        checkGame(game, message);
    }
}

// The input as the texts of both files; its first 16 bytes are also the rows' flags.
void checkWriting(const std::uint8_t* data, size_t size) {
    const Texts few = fuzz::textsOf(data, size, 12);
    Settings settings{few[0], few[1], few[2], {}, few[11]};
    for (size_t i = 0; i < 4; ++i) {
        settings.StoredGames.at(i) = {few[3 + 2 * i], few[4 + 2 * i]};
    }
    checkSettings(settings);
    if (size < rowCount) {
        return;
    }
    const Texts texts = fuzz::textsOf(data + rowCount, size - rowCount, 5 + 4 * rowCount);
    GameDetails game{texts[1], texts[2], texts[3], unsetGameYear, {}};
    for (size_t i = 0; i < rowCount; ++i) {
        const std::string* text = &texts[5 + 4 * i];
        game.rows.at(i) = {data[i] / 2, text[0], text[1], text[2], text[3], data[i] % 2 == 1};
    }
    checkGame(game, {texts[4], texts[0]});
}

} // namespace

// Whatever reads what others wrote, or what the program wrote itself, gets every input.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, size_t size) {
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    checkCodePages(bytes);
    checkHostYear(bytes);
    checkReading(bytes);
    checkWriting(data, size);
    return 0;
}
