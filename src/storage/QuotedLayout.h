#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace turnpost {

/// The second way of reading a file of quoted values, for texts that hold double quotes: the file's
/// known layout tells which quotes are the real closing ones.
///
/// `separators` are the strings between one value and the next, quotes included, in order, such as
/// `","` within a line. Gives the values when exactly one division of the file fits the layout. A
/// text that itself holds a separator which the layout expects at about that place can therefore
/// not come back: more than one division fits, and the result is nothing rather than a guess.
std::optional<std::vector<std::string>> readByLayout(std::string_view text,
                                                     const std::vector<std::string>& separators);

} // namespace turnpost
