#include "files/FileError.h"
#include "files/Files.h"
#include "files/SystemFiles.h"
#include "text/Text.h"

#include <algorithm>
#include <cerrno>
#include <fstream>

namespace turnpost {

namespace fs = std::filesystem;

namespace {

std::optional<fs::path> findInFolder(const fs::path& folder, const fs::path& name) {
    std::error_code error;
    const fs::path exact = folder / name;
    if (fs::exists(exact, error)) {
        return exact;
    }
    const std::string wanted = foldCase(fromNativePath(name));
    std::optional<fs::path> best;
    for (fs::directory_iterator entry(folder.empty() ? fs::path(".") : folder, error), end;
         !error && entry != end; entry.increment(error)) {
        const fs::path found = entry->path().filename();
        std::error_code dangling;
        if (foldCase(fromNativePath(found)) == wanted && entry->exists(dangling) &&
            (!best || found < *best)) {
            best = found;
        }
    }
    if (best) {
        return folder / *best;
    }
    return std::nullopt;
}

} // namespace

std::string systemReason(std::error_code code) {
    return code.message();
}

fs::path toNativePath(const std::string& path) {
    return pathParts(path);
}

std::string fromNativePath(const fs::path& path) {
    return path.native();
}

fs::path pathParts(const std::string& path) {
    return path;
}

std::optional<std::string> findPath(const std::string& path) {
    std::error_code error;
    if (path.empty() || path.find('\0') != std::string::npos) {
        return std::nullopt;
    }
    if (fs::exists(path, error)) {
        return path;
    }
    std::string slashed = path;
    std::replace(slashed.begin(), slashed.end(), '\\', '/');
    const fs::path parts = slashed;
    fs::path found = parts.root_path();
    for (const fs::path& part : parts.relative_path()) {
        if (part.empty()) {
            continue;
        }
        const auto next = findInFolder(found, part);
        if (!next) {
            return std::nullopt;
        }
        found = *next;
    }
    return found.native();
}

PathKind kindOf(const std::string& path) {
    std::error_code error;
    switch (fs::status(path, error).type()) {
    case fs::file_type::regular:
        return PathKind::File;
    case fs::file_type::directory:
        return PathKind::Folder;
    case fs::file_type::fifo:
        return PathKind::Pipe;
    case fs::file_type::block:
    case fs::file_type::character:
    case fs::file_type::socket:
        return PathKind::Device;
    default:
        return PathKind::Nothing;
    }
}

std::optional<std::uintmax_t> fileSize(const std::string& path) {
    std::error_code error;
    const std::uintmax_t size = fs::file_size(path, error);
    return error ? std::nullopt : std::optional(size);
}

void readInto(std::string& bytes, const std::string& path, size_t limit) {
    const auto require = [&](bool good) {
        if (!good) {
            const int code = errno != 0 ? errno : EIO;
            throw FileError(path, std::error_code(code, std::generic_category()));
        }
    };
    errno = 0;
    std::ifstream file(path, std::ios::binary);
    require(file.good());
    char buffer[16384];
    while (bytes.size() < limit && (file.read(buffer, sizeof buffer) || file.gcount() > 0)) {
        bytes.append(buffer, static_cast<size_t>(file.gcount()));
    }
    require(!file.bad());
    bytes.resize(std::min(bytes.size(), limit));
}

} // namespace turnpost
