#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace turnpost {

// Quoted value lines, the text format of the program's own files: values separated by commas, texts
// between double quotes without any escaping, lines ending in CR LF.

/// One value as read. `line` counts the line ends that separated values before it, from 0; line
/// breaks inside quotes do not count.
struct QuotedValue {
    std::string text;
    size_t line = 0;
    bool quoted = false;
};

/// More than any of the program's files holds. Those of a foreign file could fill the memory.
inline constexpr size_t mostKeptValues = 1000;

/// The values of a file in order, the first mostKeptValues of them, and how many there are in all.
/// `clean` is false when reading had to stop early: text stood between a closing quote and the next
/// separator, a closing quote was missing, or a value without quotes held one. `values` and `count`
/// then are those before that point, and `damagedLine` is its line.
struct QuotedReading {
    std::vector<QuotedValue> values;
    size_t count = 0;
    bool clean = true;
    size_t damagedLine = 0;
};

/// Reads value by value, however they are grouped into lines. Blanks before a value and around its
/// closing quote are skipped, and so are blank lines at the end of the file. Cannot fail otherwise.
QuotedReading readQuotedValues(std::string_view text);

/// A text value as written: between double quotes, unchanged.
std::string quotedText(std::string_view text);

} // namespace turnpost
