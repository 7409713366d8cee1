#include "mapi/MimeHeader.h"

#include "text/Text.h"

#include <algorithm>
#include <gmime/gmime.h>
#include <memory>

namespace turnpost {

namespace {

// True for text that a header field keeps unchanged: short ASCII words with single blanks between
// them, which no reader takes for encoded words.
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

bool isAscii(const std::string& text) {
    return std::all_of(text.begin(), text.end(),
                       [](char c) { return static_cast<unsigned char>(c) < 0x80U; });
}

// True when no part of the text could start a second address, a comment or a header.
bool isOneAddress(const std::string& address) {
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

// Empty when there is none. Normalisation can turn a character into one that is illegal in a
// domain: U+FF0C becomes the comma that separates addresses.
std::string asciiDomain(const std::string& domain) {
    InternetAddress* const mailbox = internet_address_mailbox_new(nullptr, ("x@" + domain).c_str());
    const std::string address =
        internet_address_mailbox_get_idn_addr(INTERNET_ADDRESS_MAILBOX(mailbox));
    g_object_unref(mailbox);
    const std::string form = address.substr(address.find('@') + 1);
    const auto belongs = [](char c) {
        return g_ascii_isalnum(c) || c == '-' || c == '.' || c == '_';
    };
    return std::all_of(form.begin(), form.end(), belongs) ? form : std::string();
}

} // namespace

// GMime's own encoded words are too long for languages without blanks, and GMime then breaks lines
// inside them. In plain text it adds blanks before "=?".
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

std::optional<std::string> mailAddress(const std::string& text) {
    std::string address = trimSpaces(text);
    if (!isOneAddress(address)) {
        return std::nullopt;
    }
    const size_t at = address.rfind('@');
    if (at == std::string::npos || isAscii(address.substr(at))) {
        return address;
    }
    const std::string local = address.substr(0, at + 1);
    const std::string domain = asciiDomain(address.substr(at + 1));
    if (domain.empty()) {
        return std::nullopt;
    }
    return isAscii(local) ? local + domain : address;
}

} // namespace turnpost
