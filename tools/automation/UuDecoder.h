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

/// All UUencoded blocks of a text with CR LF lines, decoded by the general rules and not by those
/// of our encoder. Nothing when a block is damaged.
std::optional<std::vector<DecodedFile>> decodeUuBlocks(std::string_view text);

/// The text as a mail server stores it: each line that starts with two periods loses one.
std::string withoutDoubledPeriods(std::string_view text);

} // namespace turnpost::automation
