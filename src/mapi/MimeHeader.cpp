#include "mapi/MimeHeader.h"

#include "platform/Text.h"

#include <algorithm>
#include <glib.h>
#include <memory>

namespace turnpost {

namespace {

// True for what a header field can hold as it is and give back unchanged: short ASCII words with
// single blanks between them, which no reader takes for encoded ones.
bool isPlain(const std::string& text) {
    size_t wordLength = 0;
    const auto keeps = [&wordLength](char c) {
        wordLength = c == ' ' ? 0 : wordLength + 1;
        return c >= ' ' && c <= '~' && wordLength <= 60;
    };
    return std::all_of(text.begin(), text.end(), keeps) && text == trimSpaces(text) &&
           text.find("  ") == std::string::npos && text.find("=?") == std::string::npos;
}

std::string encodedWord(const std::string& bytes) {
    const std::unique_ptr<char, decltype(&g_free)> base64(
        g_base64_encode(reinterpret_cast<const guchar*>(bytes.data()), bytes.size()), g_free);
    return std::string("=?UTF-8?B?") + base64.get() + "?=";
}

bool continuesCharacter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

} // namespace

// GMime's own encoded words are longer than allowed where a language sets no blanks, and it then
// breaks lines inside them; in plain text it adds blanks before "=?".
std::string headerText(const std::string& value) {
    constexpr size_t bytesPerWord = 39;
    constexpr size_t bytesPerCharacter = 4;
    std::string text = oneLine(value);
    if (isPlain(text)) {
        return text;
    }
    std::string words;
    for (size_t from = 0; from < text.size();) {
        // No character may be divided between two words.
        size_t to = std::min(from + bytesPerWord, text.size());
        while (to < text.size() && to > from + bytesPerWord - bytesPerCharacter &&
               continuesCharacter(text[to])) {
            --to;
        }
        if (from > 0) {
            words += ' ';
        }
        words += encodedWord(text.substr(from, to - from));
        from = to;
    }
    return words;
}

bool isOneAddress(const std::string& text) {
    const std::string address = trimSpaces(text);
    bool quoted = false;
    bool escaped = false;
    const auto belongs = [&](char c) {
        const auto byte = static_cast<unsigned char>(c);
        const bool taken = escaped;
        escaped = quoted && !taken && c == '\\';
        if (c == '"' && !taken) {
            quoted = !quoted;
        }
        const bool control = byte < ' ' || byte == 0x7F;
        return !control && (quoted || std::string_view(" ,;<>()\\").find(c) == std::string::npos);
    };
    return !address.empty() && std::all_of(address.begin(), address.end(), belongs) && !quoted;
}

} // namespace turnpost
