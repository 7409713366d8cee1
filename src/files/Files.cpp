#include "files/Files.h"

#include "files/FileError.h"
#include "files/FolderEntries.h"
#include "files/SystemFiles.h"
#include "text/Messages.h"

#include <algorithm>

namespace turnpost {

bool isAbsolutePath(const std::string& path) {
    return pathParts(path).is_absolute();
}

std::optional<std::string> findFile(const std::string& path) {
    auto found = findPath(path);
    if (found && kindOf(*found) == PathKind::File) {
        return found;
    }
    return std::nullopt;
}

bool isFolder(const std::string& path) {
    return kindOf(path) == PathKind::Folder;
}

void requireNoOtherKind(const std::string& path) {
    if (path.find('\0') != std::string::npos) {
        throw FileError(path, messages::nulInPath);
    }
    switch (kindOf(path)) {
    case PathKind::Folder:
        throw FileError(path, messages::isFolder);
    case PathKind::Pipe:
        throw FileError(path, messages::isPipe);
    case PathKind::Device:
        throw FileError(path, messages::isDevice);
    case PathKind::File:
    case PathKind::Nothing:
        break;
    }
}

bool folderHoldsFile(const std::string& folder) {
    const auto found = findPath(folder);
    const auto entries = found ? folderEntries(*found) : std::nullopt;
    return entries && std::any_of(entries->begin(), entries->end(),
                                  [](const FolderEntry& entry) { return !entry.folder; });
}

std::string readFile(const std::string& path, size_t limit) {
    const auto found = findPath(path);
    requireNoOtherKind(found.value_or(path));
    if (!found) {
        throw FileError(path, std::make_error_code(std::errc::no_such_file_or_directory));
    }
    std::string bytes;
    const auto size = limit == std::string::npos ? fileSize(*found) : std::nullopt;
    if (size > maxFileBytes) {
        throw FileError(*found, std::make_error_code(std::errc::file_too_large));
    }
    // Allocated at once: growing step by step would take several times the memory.
    bytes.reserve(static_cast<size_t>(size.value_or(0)));
    readInto(bytes, *found, limit);
    return bytes;
}

} // namespace turnpost
