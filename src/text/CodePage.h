#pragma once

#include <string>
#include <string_view>

namespace turnpost {

// Inside the program every text is UTF-8. These functions are the only places where it becomes
// bytes of a code page, and back. None of them fails.

/// True when the bytes are well-formed UTF-8 (no overlong forms, no surrogates).
bool isUtf8(std::string_view bytes);

/// Appends a code point (at most U+10FFFF, no surrogate) as UTF-8.
void appendUtf8(std::string& text, char32_t codePoint);

/// Reads the code point that starts at `position` and moves `position` behind it; bytes that are no
/// UTF-8 give U+FFFD, one for each byte. `position` must lie inside the text.
char32_t nextCodePoint(std::string_view text, size_t& position);

/// Windows-1252 bytes as UTF-8. The five bytes without a character become the control characters
/// U+0081, U+008D, U+008F, U+0090 and U+009D, so that they survive a round trip.
std::string fromWindows1252(std::string_view bytes);

/// UTF-8 as Windows-1252; a character that has none becomes "?".
std::string toWindows1252(std::string_view text);

/// Bytes of one of the program's own files: UTF-8, without its byte order mark, where they are well
/// formed, as in a game saved on another system; else the system's code page. Texts that are
/// written in a code page and happen to look like UTF-8 are read as other ones: whoever writes has
/// to read back to know.
std::string fromFileBytes(std::string_view bytes);

/// What is written: the system's code page on Windows, UTF-8 elsewhere; a character that has no
/// bytes becomes "?".
std::string toFileBytes(std::string_view text);

/// Bytes for the wire: the Windows code page there, Windows-1252 elsewhere; a character that has
/// none goes out as "?".
std::string toWireBytes(std::string_view text);

/// True when the character, a code point of UTF-8, goes out as itself and not as "?".
bool hasWireBytes(char32_t character);

/// What a server said: UTF-8 where it is well formed, else the system's code page.
std::string fromWireBytes(std::string_view bytes);

/// Bytes that are no UTF-8: the system's code page on Windows; Windows-1252 elsewhere (a file
/// brought over from there), and where UTF-8 is that code page.
std::string fromSystemBytes(std::string_view bytes);

#ifdef _WIN32
/// UTF-16 for the system's calls; bytes that are no UTF-8 become U+FFFD.
std::wstring toUtf16(std::string_view text);

/// The inverse; half a surrogate pair becomes U+FFFD.
std::string fromUtf16(std::wstring_view text);
#endif

} // namespace turnpost
