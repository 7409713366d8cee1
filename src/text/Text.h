#pragma once

#include <string>
#include <string_view>

namespace turnpost {

/// The text without the space characters (U+0020 only) at both ends.
std::string trimSpaces(std::string_view text);

/// The text, UTF-8, on one line: every line break (CR LF, CR, LF, or Unicode's line and paragraph
/// separators U+2028 and U+2029) becomes one blank, so that no value can add a line to a
/// conversation or a header.
std::string oneLine(std::string_view text);

/// The text with every line break (CR LF, CR or LF) written as CR LF, the line end of RFC
/// 5321, 2.3.8.
std::string withCrLf(std::string_view text);

/// The text with its middle replaced by "..." when it has more than `maxLength` code points; never
/// cut inside a code point.
std::string shortened(std::string_view text, size_t maxLength);

/// The text with the letters of ASCII and Latin-1 in lower case, for comparing file names; the game
/// uses no other letters in them. Bytes that are not UTF-8 are kept.
std::string foldCase(std::string_view text);

} // namespace turnpost
