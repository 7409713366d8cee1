#pragma once

#include <string>

namespace turnpost {

// What the files module is made of and each system does in its own way.

enum class PathKind { Nothing, File, Folder, Pipe, Device };

/// What is there, links followed; Nothing also when it cannot be looked at.
PathKind kindOf(const std::string& path);

/// Appends the file's bytes until there are `limit` of them. Throws FileError.
void readInto(std::string& bytes, const std::string& path, size_t limit);

} // namespace turnpost
