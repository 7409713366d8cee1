#pragma once

#include <string>
#include <string_view>

namespace turnpost {

#ifdef _WIN32
inline constexpr char pathSeparator = '\\';
#else
inline constexpr char pathSeparator = '/';
#endif

/// Both separators count on every system, because a path may come from Windows.
constexpr bool isSeparator(char c) {
    return c == '\\' || c == '/';
}

/// The part of a path after its last separator; the whole path when it has none.
std::string nameOfPath(std::string_view path);

/// The part of a path before its last separator; a root keeps its separator ("/", "C:\"). Empty for
/// a path without a separator.
std::string folderOfPath(std::string_view path);

/// The folder with a separator at its end; if it has none, the system's own is added. An empty
/// folder stays empty.
std::string withSeparator(std::string_view folder);

/// Folder and name joined by one separator.
std::string joinPath(std::string_view folder, std::string_view name);

} // namespace turnpost
