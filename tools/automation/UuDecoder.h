#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace turnpost::automation {

struct DecodedFile {
    std::string name;
    std::string bytes;
};

/// All UUencoded blocks of a text with CR LF lines, decoded by the book and not by our encoder's
/// rules; nothing when a block is broken.
std::optional<std::vector<DecodedFile>> decodeUuBlocks(std::string_view text);

/// The text as a mail server stores it: one period taken off each line that starts with two.
std::string withoutDoubledPeriods(std::string_view text);

} // namespace turnpost::automation
