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
    /// nothing when it is not a number or does not fit an int.
    std::optional<int> number() const;
};

using QuotedValues = std::vector<QuotedValue>;

/// What reading gave. `values` has all values of the layout, or those before the place where
/// reading stopped; `unread` is the rest of the text. `inLines` is true when all values are there
/// and each stands in its line by the layout. `whole` is true when all are there and no text can
/// have been taken for two.
struct QuotedReading {
    QuotedValues values;
    std::string_view unread;
    bool inLines = false;
    bool whole = false;
};

/// Reads as many values as the layout has, one after the other, however they are grouped into
/// lines; what follows the last value is not read. Blanks before a value and after a closing quote
/// are skipped. A text without quotes ends at the next comma or line end (CR LF, CR or LF). Reading
/// stops where a closing quote is missing or followed by other text, where a value without quotes
/// holds a quote, and at the end of the text.
///
/// Why this is safe although texts are not escaped: when n texts hold k double quotes themselves,
/// their file holds 2n + k of them, and reading n texts takes 2n. If no quote is left after the
/// last value, k is 0 and every text is as it was. If some are left, either something was added
/// after the values, or k is more than 0. A text without line breaks that was taken for two makes
/// its line too long, so the values are whole then only when each stands in its line by the layout.
/// One kind of file remains: one text holds a double quote and another a line break. Such a file
/// may be misread, and only reading the file back can tell.
QuotedReading readInOrder(std::string_view text, std::span<const LineLayout> layout);

/// A text value as written: between double quotes, unchanged.
std::string quotedText(std::string_view text);

} // namespace turnpost
