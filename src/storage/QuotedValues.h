#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace turnpost {

// Quoted value lines, the text format of the program's own files: values separated by commas, texts
// between double quotes without any escaping, lines ending in CR LF. Texts are UTF-8.

/// What a line of a file holds: first numbers, then texts.
struct LineLayout {
    size_t numbers = 0;
    size_t texts = 1;
};

struct QuotedValue {
    std::string text;
    bool quoted = false;

    /// The whole number that stands there without quotes, with or without a sign and blanks;
    /// nothing when it is none, or none that fits.
    std::optional<int> number() const;
};

using QuotedValues = std::vector<QuotedValue>;

/// `values` are as many as the layout has, or those before the place where reading had to stop;
/// `behind` is what was not read. `inLines` is true when they are all there and each stands in its
/// line by the layout; `whole` when they are all there and no text can have been taken for two.
struct QuotedReading {
    QuotedValues values;
    std::string_view behind;
    bool inLines = false;
    bool whole = false;
};

/// The first rule: as many values as the layout has, one after the other, however they are grouped
/// into lines; what follows the last one is not read. Blanks before a value and behind a closing
/// quote are skipped; a text without quotes ends at the next comma or line end (CR LF, CR or LF).
/// Reading stops where a closing quote is missing or followed by other text, where a value without
/// quotes holds one, and at the end of the text.
///
/// Why this is safe although texts are not escaped: a file written with n texts that hold k double
/// quotes themselves holds 2n + k of them, and n quoted texts take 2n. When none is left behind the
/// last value, k is 0 and every text is as it was. When some are left, something may have been put
/// behind the values, or k is more than 0. A text without line breaks that was taken for two makes
/// its line too long; so the values are whole then only when each stands in its line by the layout.
/// That leaves files in which one text holds a double quote and one a line break: they may be read
/// as others, and whoever writes a file has to read it back to know.
QuotedReading readInOrder(std::string_view text, std::span<const LineLayout> layout);

/// The second rule, for texts that hold double quotes: the values of the leading lines that can be
/// read. A line is divided into exactly as many quoted texts as it has by the layout, at `","`; one
/// that can't be, or can in several ways, or whose number is none, is not read, and those behind it
/// neither. A line that the first rule reads to its end is taken as read. A line without its end
/// counts only as the last one of the layout.
QuotedValues readByLines(std::span<const std::string_view> lines,
                         std::span<const LineLayout> layout);

/// True when the second rule reads this line.
bool isLine(std::string_view line, LineLayout layout);

/// The lines of a file with their ends: CR LF where the text holds one, else LF. What follows the
/// last end is a line when it is not empty.
std::vector<std::string_view> linesOf(std::string_view text);

std::string_view withoutLineEnd(std::string_view line);

/// A text value as written: between double quotes, unchanged.
std::string quotedText(std::string_view text);

} // namespace turnpost
