#pragma once

#include <string>
#include <string_view>

namespace turnpost {

// Inside the program every text is UTF-8. Only these functions convert it to and from the bytes of
// a code page. None of them fails.

/// True when the bytes are well-formed UTF-8 (no overlong forms, no surrogates).
bool isUtf8(std::string_view bytes);

/// Appends a code point (at most U+10FFFF, no surrogate) as UTF-8.
void appendUtf8(std::string& text, char32_t codePoint);

/// Reads the code point that starts at `position` and moves `position` past it. Each byte that is
/// not UTF-8 gives U+FFFD. `position` must lie inside the text.
char32_t nextCodePoint(std::string_view text, size_t& position);

/// Windows-1252 bytes as UTF-8. The five bytes without a character become the control characters
/// U+0081, U+008D, U+008F, U+0090 and U+009D, so that they survive a round trip.
std::string fromWindows1252(std::string_view bytes);

/// UTF-8 as Windows-1252; a character that it lacks becomes "?".
std::string toWindows1252(std::string_view text);

/// The text of one of the program's own files. Bytes that are well-formed UTF-8 (perhaps from
/// another system) are read as UTF-8, without a byte order mark; others are in the system's code
/// page. Text of a code page that happens to look like UTF-8 is misread; a writer has to read back
/// to detect it.
std::string fromFileBytes(std::string_view bytes);

/// The bytes for one of the program's own files: the system's code page on Windows, UTF-8
/// elsewhere. A character that the code page lacks becomes "?".
std::string toFileBytes(std::string_view text);

/// The bytes for SMTP: the system's code page on Windows, Windows-1252 elsewhere. A character that
/// the code page lacks becomes "?".
std::string toWireBytes(std::string_view text);

/// True when toWireBytes() keeps this code point instead of making it "?".
bool hasWireBytes(char32_t character);

/// Text from a server or another program: UTF-8 if it is well formed, else the system's code page.
std::string fromWireBytes(std::string_view bytes);

/// Text from bytes that are not UTF-8. They are in the system's code page on Windows. Elsewhere,
/// and when that is UTF-8, they are read as Windows-1252, because such a file comes from Windows.
std::string fromSystemBytes(std::string_view bytes);

#ifdef _WIN32
/// UTF-16 for the system's calls; bytes that are not UTF-8 become U+FFFD.
std::wstring toUtf16(std::string_view text);

/// UTF-8 of UTF-16; an unpaired surrogate becomes U+FFFD.
std::string fromUtf16(std::wstring_view text);
#endif

} // namespace turnpost
