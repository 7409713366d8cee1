#pragma once

#include "storage/QuotedValues.h"

#include <span>
#include <string_view>
#include <vector>

namespace turnpost {

// Reading quoted value lines when texts hold double quotes themselves: each line is divided by its
// layout, while readInOrder (QuotedValues.h) takes the values as they come.

/// The values of the leading lines that can be read. A line that readInOrder reads to its end is
/// taken so. Any other line is divided at `","` into exactly as many quoted texts as its layout
/// has. Reading stops at a line that cannot be divided, can be divided in several ways, or has a
/// malformed number. A line that was cut off right after an inner double quote looks complete; so a
/// line counts only with its line end, except the last one of the layout.
QuotedValues readByLines(std::span<const std::string_view> lines,
                         std::span<const LineLayout> layout);

/// True when this line can be read in one of these ways.
bool isLine(std::string_view line, LineLayout layout);

/// The lines of a file with their ends: CR LF where the text holds one, else LF. What follows the
/// last end is a line when it is not empty.
std::vector<std::string_view> linesOf(std::string_view text);

std::string_view withoutLineEnd(std::string_view line);

} // namespace turnpost
