#pragma once

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <regex>
#include <string>
#include <string_view>
#include <vector>

namespace turnpost::fuzz {

/// Ends the program as a finding when something that must always hold does not.
inline void require(bool holds, const char* property) {
    if (!holds) {
        std::fprintf(stderr, "Does not hold: %s\n", property);
        std::abort();
    }
}

/// The input as texts, which are separated by NULs, so that seeds can be written by hand. Missing
/// ones are empty; the last one takes the rest.
inline std::vector<std::string> textsOf(const std::uint8_t* data, size_t size, size_t count) {
    std::string_view rest(reinterpret_cast<const char*>(data), size);
    std::vector<std::string> texts(count);
    for (size_t i = 0; i < count; ++i) {
        const size_t end = i + 1 < count ? rest.find('\0') : std::string_view::npos;
        texts[i] = rest.substr(0, end);
        rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
    }
    return texts;
}

inline bool holdAny(const std::vector<std::string>& texts, std::string_view characters) {
    return std::any_of(texts.begin(), texts.end(), [&](const std::string& text) {
        return text.find_first_of(characters) != std::string::npos;
    });
}

/// A body in which a line that ends in a double quote is followed by one that begins with a number
/// may be read as a shorter body and a row.
inline bool mayHoldRows(const std::string& body) {
    static const std::regex rows("\" *[\r\n][ \r\n]*[-+0-9]");
    return std::regex_search(body, rows);
}

inline std::string bytesOf(const std::uint8_t* data, size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}

} // namespace turnpost::fuzz
