#include "text/CodePage.h"

#include <algorithm>
#include <array>

namespace turnpost {

namespace {

constexpr char32_t replacementCharacter = 0xFFFD;

// The characters of bytes 0x80 to 0x9F; all other bytes stand for the code point of their value.
constexpr std::array<char32_t, 32> windows1252High = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

unsigned byteAt(std::string_view text, size_t position) {
    return static_cast<unsigned char>(text[position]);
}

// Length of the UTF-8 sequence that starts at position, 0 when it is malformed.
size_t sequenceLength(std::string_view text, size_t position) {
    const unsigned lead = byteAt(text, position);
    const size_t length = lead < 0x80                    ? 1
                          : lead >= 0xC2 && lead <= 0xDF ? 2
                          : lead >= 0xE0 && lead <= 0xEF ? 3
                          : lead >= 0xF0 && lead <= 0xF4 ? 4
                                                         : 0;
    if (length == 0 || position + length > text.size()) {
        return 0;
    }
    for (size_t i = 1; i < length; ++i) {
        if ((byteAt(text, position + i) & 0xC0U) != 0x80U) {
            return 0;
        }
    }
    const unsigned second = length > 1 ? byteAt(text, position + 1) : 0;
    const bool overlong = (lead == 0xE0 && second < 0xA0) || (lead == 0xF0 && second < 0x90);
    const bool surrogate = lead == 0xED && second > 0x9F;
    const bool tooLarge = lead == 0xF4 && second > 0x8F;
    return overlong || surrogate || tooLarge ? 0 : length;
}

} // namespace

char32_t nextCodePoint(std::string_view text, size_t& position) {
    const size_t length = sequenceLength(text, position);
    if (length == 0) {
        ++position;
        return replacementCharacter;
    }
    char32_t codePoint = byteAt(text, position);
    if (length > 1) {
        codePoint &= 0xFFU >> (length + 1);
    }
    for (size_t i = 1; i < length; ++i) {
        codePoint = (codePoint << 6) | (byteAt(text, position + i) & 0x3FU);
    }
    position += length;
    return codePoint;
}

bool isUtf8(std::string_view bytes) {
    size_t position = 0;
    while (position < bytes.size()) {
        const size_t length = sequenceLength(bytes, position);
        if (length == 0) {
            return false;
        }
        position += length;
    }
    return true;
}

void appendUtf8(std::string& text, char32_t codePoint) {
    const auto tail = [&](int shift) {
        text += static_cast<char>(0x80U | ((codePoint >> shift) & 0x3FU));
    };
    if (codePoint < 0x80) {
        text += static_cast<char>(codePoint);
    } else if (codePoint < 0x800) {
        text += static_cast<char>(0xC0U | (codePoint >> 6));
        tail(0);
    } else if (codePoint < 0x10000) {
        text += static_cast<char>(0xE0U | (codePoint >> 12));
        tail(6);
        tail(0);
    } else {
        text += static_cast<char>(0xF0U | (codePoint >> 18));
        tail(12);
        tail(6);
        tail(0);
    }
}

std::string fromWindows1252(std::string_view bytes) {
    std::string text;
    text.reserve(bytes.size());
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        const bool high = byte >= 0x80 && byte <= 0x9F;
        appendUtf8(text, high ? windows1252High[byte - 0x80U] : byte);
    }
    return text;
}

std::string toWindows1252(std::string_view text) {
    std::string bytes;
    bytes.reserve(text.size());
    for (size_t position = 0; position < text.size();) {
        const char32_t codePoint = nextCodePoint(text, position);
        if (codePoint < 0x80 || (codePoint >= 0xA0 && codePoint <= 0xFF)) {
            bytes += static_cast<char>(codePoint);
            continue;
        }
        const auto high = std::find(windows1252High.begin(), windows1252High.end(), codePoint);
        bytes += high == windows1252High.end()
                     ? '?'
                     : static_cast<char>(0x80 + (high - windows1252High.begin()));
    }
    return bytes;
}

std::string fromFileBytes(std::string_view bytes) {
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    if (!isUtf8(bytes)) {
        return fromSystemBytes(bytes);
    }
    return std::string(bytes.starts_with(byteOrderMark) ? bytes.substr(byteOrderMark.size())
                                                        : bytes);
}

bool hasWireBytes(char32_t character) {
    std::string text;
    appendUtf8(text, character);
    // A character above U+FFFF may become two "?", one for each half of its surrogate pair.
    return character == '?' || toWireBytes(text).find_first_not_of('?') != std::string::npos;
}

std::string fromWireBytes(std::string_view bytes) {
    return isUtf8(bytes) ? std::string(bytes) : fromSystemBytes(bytes);
}

} // namespace turnpost
