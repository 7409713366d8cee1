#pragma once

#include <string>

namespace turnpost {

// The system-specific parts of Files.

enum class PathKind { Nothing, File, Folder, Pipe, Device };

/// What the path leads to, links followed; Nothing also when it cannot be examined.
PathKind kindOf(const std::string& path);

/// Appends the file's bytes until `bytes` has `limit` of them. Throws FileError.
void readInto(std::string& bytes, const std::string& path, size_t limit);

} // namespace turnpost
