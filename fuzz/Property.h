#pragma once

#include <algorithm>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace turnpost::fuzz {

/// Thrown when something that must always hold does not: the fuzzing engine then reports a finding,
/// and a test fails.
inline void require(bool holds, const char* property) {
    if (!holds) {
        throw std::logic_error(property);
    }
}

/// The input as texts. They are separated by NULs, so that seeds can be written by hand. Missing
/// texts are empty; the last text takes the rest.
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

} // namespace turnpost::fuzz
