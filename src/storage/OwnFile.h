#pragma once

#include <string>

namespace turnpost {

/// Largest size of one of the program's own files, in bytes: a thousand times what a game needs,
/// and still read at once.
inline constexpr size_t maxOwnFileBytes = size_t{1} << 20;

/// Replaces one of the program's own files by this text (UTF-8), in the system's code page. Throws
/// FileError, also when the file would be larger than maxOwnFileBytes (reading would refuse it) or
/// the text is not valid UTF-8. The old file is then unchanged.
void writeOwnFile(const std::string& path, const std::string& text);

} // namespace turnpost
