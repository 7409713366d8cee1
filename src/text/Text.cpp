#include "text/Text.h"

#include <algorithm>

namespace turnpost {

namespace {

std::string replaceLineBreaks(std::string_view text, std::string_view with) {
    std::string result;
    result.reserve(text.size());
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n') {
            ++i;
        }
        if (text[i] == '\r' || text[i] == '\n') {
            result += with;
        } else {
            result += text[i];
        }
    }
    return result;
}

} // namespace

std::string trimSpaces(std::string_view text) {
    const size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) {
        return {};
    }
    return std::string(text.substr(first, text.find_last_not_of(' ') - first + 1));
}

std::string oneLine(std::string_view text) {
    std::string line = replaceLineBreaks(text, " ");
    for (const std::string_view separator : {"\u2028", "\u2029"}) {
        for (size_t at = line.find(separator); at != std::string::npos;
             at = line.find(separator, at)) {
            line.replace(at, separator.size(), " ");
        }
    }
    return line;
}

std::string withCrLf(std::string_view text) {
    return replaceLineBreaks(text, "\r\n");
}

std::string shortened(std::string_view text, size_t maxLength) {
    const auto begins = [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; };
    const auto length = static_cast<size_t>(std::count_if(text.begin(), text.end(), begins));
    if (length <= maxLength) {
        return std::string(text);
    }
    // Where the character with this index begins.
    const auto place = [&](size_t index) {
        size_t position = 0;
        for (size_t seen = 0; position < text.size(); ++position) {
            seen += begins(text[position]) ? 1 : 0;
            if (seen > index) {
                break;
            }
        }
        return position;
    };
    return std::string(text.substr(0, place(maxLength / 2)))
        .append("...")
        .append(text.substr(place(length - maxLength / 2)));
}

std::string foldCase(std::string_view text) {
    std::string result(text);
    for (size_t i = 0; i < result.size(); ++i) {
        const auto byte = static_cast<unsigned char>(result[i]);
        const auto before = i > 0 ? static_cast<unsigned char>(result[i - 1]) : 0U;
        const bool ascii = byte >= 'A' && byte <= 'Z';
        // U+00C0 to U+00DE are C3 80 to C3 9E in UTF-8; U+00D7 is the multiplication sign.
        const bool latin1 = before == 0xC3 && byte >= 0x80 && byte <= 0x9E && byte != 0x97;
        if (ascii || latin1) {
            result[i] = static_cast<char>(byte + 0x20);
        }
    }
    return result;
}

} // namespace turnpost
