#pragma once

#include <string>

namespace turnpost {

/// The largest file that the program reads or writes as one of its own: a thousand times what a
/// game needs, and little enough to be read in no time.
inline constexpr size_t maxOwnFileBytes = size_t{1} << 20;

/// Replaces one of the program's own files by this text (UTF-8), in the system's code page. Throws
/// FileError, also when it would be above maxOwnFileBytes and so be refused when it is read, and
/// when the text is not valid UTF-8; the old file is then as it was.
void writeOwnFile(const std::string& path, const std::string& text);

} // namespace turnpost
