#pragma once

#include <string>
#include <string_view>

namespace turnpost {

#ifdef _WIN32
inline constexpr char pathSeparator = '\\';
#else
inline constexpr char pathSeparator = '/';
#endif

/// Both separators count everywhere: paths may come from the game's Windows side.
constexpr bool isSeparator(char c) {
    return c == '\\' || c == '/';
}

/// The part of a path after its last separator; a path without one is taken whole.
std::string nameOfPath(std::string_view path);

/// The part of a path before its last separator, a root with its separator ("/", "C:\"); empty for
/// a path without a separator.
std::string folderOfPath(std::string_view path);

/// The folder ending in a separator: the system's own one is added where there is none. An empty
/// folder stays empty.
std::string withSeparator(std::string_view folder);

/// Folder and name joined by one separator.
std::string joinPath(std::string_view folder, std::string_view name);

} // namespace turnpost
