#include "files/FileError.h"
#include "files/FileHandle.h"
#include "files/Files.h"
#include "files/SystemFiles.h"
#include "text/CodePage.h"
#include "text/Messages.h"
#include "text/SystemErrors.h"

#include <algorithm>

namespace turnpost {

namespace {

constexpr std::wstring_view withoutLimit = L"\\\\?\\";
constexpr std::wstring_view serverWithoutLimit = L"\\\\?\\UNC\\";

// Folders can be made up to here; files take a few characters more.
constexpr size_t maxLengthForAllCalls = MAX_PATH - 12 - 1;

// The C++ library's absolute() keeps ".." and slashes, which no call takes after the prefix.
std::wstring fullPath(const std::wstring& path) {
    std::wstring full(GetFullPathNameW(path.c_str(), 0, nullptr, nullptr), L'\0');
    full.resize(
        GetFullPathNameW(path.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr));
    return full;
}

} // namespace

void throwSystemError(const std::string& path, DWORD code) {
    throw FileError(path, std::error_code(static_cast<int>(code), std::system_category()));
}

std::string systemReason(std::error_code code) {
    if (code.category() != std::system_category()) {
        return code.message();
    }
    const std::string reason = systemErrorWords(static_cast<DWORD>(code.value()));
    return reason.empty() ? messages::unknownSystemError(code.value()) : reason;
}

std::filesystem::path toNativePath(const std::string& path) {
    const std::wstring wide = toUtf16(path);
    if (wide.size() <= maxLengthForAllCalls || wide.starts_with(withoutLimit)) {
        return wide;
    }
    const std::wstring whole = fullPath(wide);
    return whole.starts_with(L"\\\\") ? std::wstring(serverWithoutLimit) + whole.substr(2)
                                      : std::wstring(withoutLimit) + whole;
}

std::string fromNativePath(const std::filesystem::path& path) {
    const std::wstring& wide = path.native();
    if (wide.starts_with(serverWithoutLimit)) {
        return fromUtf16(L"\\\\" + wide.substr(serverWithoutLimit.size()));
    }
    return fromUtf16(wide.starts_with(withoutLimit) ? wide.substr(withoutLimit.size()) : wide);
}

std::filesystem::path pathParts(const std::string& path) {
    return toUtf16(path);
}

FileHandle openForQueries(const std::string& path) {
    return FileHandle(CreateFileW(toNativePath(path).c_str(), FILE_READ_ATTRIBUTES, shareAll,
                                  nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
}

std::optional<std::string> findPath(const std::string& path) {
    if (path.find('\0') != std::string::npos || kindOf(path) == PathKind::Nothing) {
        return std::nullopt;
    }
    std::string found = path;
    std::replace(found.begin(), found.end(), '/', '\\');
    return found;
}

PathKind kindOf(const std::string& path) {
    const FileHandle opened = openForQueries(path);
    if (!opened.isOpen()) {
        return PathKind::Nothing;
    }
    const DWORD type = GetFileType(opened.get());
    if (type != FILE_TYPE_DISK) {
        return type == FILE_TYPE_PIPE ? PathKind::Pipe : PathKind::Device;
    }
    BY_HANDLE_FILE_INFORMATION about{};
    if (GetFileInformationByHandle(opened.get(), &about) == 0) {
        return PathKind::Nothing;
    }
    const bool folder = (about.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    return folder ? PathKind::Folder : PathKind::File;
}

std::optional<std::uintmax_t> fileSize(const std::string& path) {
    const FileHandle opened = openForQueries(path);
    LARGE_INTEGER size;
    if (!opened.isOpen() || GetFileSizeEx(opened.get(), &size) == 0) {
        return std::nullopt;
    }
    return static_cast<std::uintmax_t>(size.QuadPart);
}

void readInto(std::string& bytes, const std::string& path, size_t limit) {
    const FileHandle file(CreateFileW(toNativePath(path).c_str(), GENERIC_READ, shareAll, nullptr,
                                      OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
    if (!file.isOpen()) {
        throwSystemError(path, GetLastError());
    }
    char buffer[16384];
    DWORD count = 1;
    while (bytes.size() < limit && count > 0) {
        const size_t wanted = std::min(limit - bytes.size(), sizeof buffer);
        if (ReadFile(file.get(), buffer, static_cast<DWORD>(wanted), &count, nullptr) == 0) {
            throwSystemError(path, GetLastError());
        }
        bytes.append(buffer, count);
    }
}

} // namespace turnpost
