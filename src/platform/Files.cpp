#include "platform/Files.h"

#include "platform/FileError.h"
#include "platform/Messages.h"
#include "platform/Text.h"

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

fs::path toNativePath(const std::string& path) {
    return {std::u8string(path.begin(), path.end())};
}

std::string fromNativePath(const fs::path& path) {
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
}

std::optional<std::string> findPath(const std::string& path) {
    std::error_code error;
    if (path.empty() || path.find('\0') != std::string::npos) {
        return std::nullopt;
    }
    if (fs::exists(toNativePath(path), error)) {
        return fromNativePath(toNativePath(path).make_preferred());
    }
    std::string slashed = path;
    std::replace(slashed.begin(), slashed.end(), '\\', '/');
    const fs::path parts = toNativePath(slashed);
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
    return fromNativePath(found.make_preferred());
}

std::optional<std::string> findFile(const std::string& path) {
    auto found = findPath(path);
    std::error_code error;
    if (found && fs::is_regular_file(toNativePath(*found), error)) {
        return found;
    }
    return std::nullopt;
}

void requireNoOtherKind(const std::string& path) {
    if (path.find('\0') != std::string::npos) {
        throw FileError(path, messages::nulInPath());
    }
    std::error_code error;
    switch (fs::status(toNativePath(path), error).type()) {
    case fs::file_type::directory:
        throw FileError(path, messages::isFolder());
    case fs::file_type::fifo:
        throw FileError(path, messages::isPipe());
    case fs::file_type::block:
    case fs::file_type::character:
    case fs::file_type::socket:
        throw FileError(path, messages::isDevice());
    default:
        break;
    }
}

bool folderHoldsFile(const std::string& folder) {
    const auto found = findPath(folder);
    std::error_code error;
    if (!found) {
        return false;
    }
    for (fs::directory_iterator entry(toNativePath(*found), error), end; !error && entry != end;
         entry.increment(error)) {
        std::error_code unreadable;
        if (entry->is_regular_file(unreadable)) {
            return true;
        }
    }
    return false;
}

std::string readFile(const std::string& path, size_t limit) {
    const auto found = findPath(path);
    requireNoOtherKind(found.value_or(path));
    if (!found) {
        throw FileError(path, std::make_error_code(std::errc::no_such_file_or_directory));
    }
    const auto fail = [&] {
        const int code = errno != 0 ? errno : EIO;
        throw FileError(*found, std::error_code(code, std::generic_category()));
    };
    std::error_code error;
    const std::uintmax_t size = fs::file_size(toNativePath(*found), error);
    const bool sizedWhole = limit == std::string::npos && !error;
    if (sizedWhole && size > mostFileBytes) {
        throw FileError(*found, std::make_error_code(std::errc::file_too_large));
    }
    errno = 0;
    std::ifstream file(toNativePath(*found), std::ios::binary);
    if (!file) {
        fail();
    }
    std::string bytes;
    // Growing step by step would take several times the memory.
    bytes.reserve(sizedWhole ? static_cast<size_t>(size) : 0);
    char buffer[16384];
    while (bytes.size() < limit && (file.read(buffer, sizeof buffer) || file.gcount() > 0)) {
        bytes.append(buffer, static_cast<size_t>(file.gcount()));
    }
    if (file.bad()) {
        fail();
    }
    bytes.resize(std::min(bytes.size(), limit));
    return bytes;
}

} // namespace turnpost
