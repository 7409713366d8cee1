#include "platform/FileError.h"
#include "platform/Files.h"
#include "platform/TemporaryName.h"

#include <windows.h>

namespace turnpost {

namespace {

[[noreturn]] void fail(const std::string& path, DWORD code) {
    throw FileError(path, std::error_code(static_cast<int>(code), std::system_category()));
}

void writeNew(const std::wstring& file, const std::string& target, const std::string& bytes) {
    const HANDLE handle = CreateFileW(file.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                      FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle == INVALID_HANDLE_VALUE) {
        fail(target, GetLastError());
    }
    DWORD written = 0;
    const bool good =
        WriteFile(handle, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) != 0 &&
        FlushFileBuffers(handle) != 0;
    const DWORD code = GetLastError();
    CloseHandle(handle);
    if (!good) {
        DeleteFileW(file.c_str());
        fail(target, code);
    }
}

// ReplaceFileW keeps the attributes and permissions of an existing file. It is allowed to fail
// after it has removed that file; the name is then free.
bool moveIntoPlace(const std::wstring& from, const std::wstring& to, bool exists) {
    if (exists) {
        if (ReplaceFileW(to.c_str(), from.c_str(), nullptr, 0, nullptr, nullptr) != 0) {
            return true;
        }
        if (GetLastError() != ERROR_UNABLE_TO_MOVE_REPLACEMENT) {
            return false;
        }
    }
    return MoveFileExW(from.c_str(), to.c_str(), MOVEFILE_WRITE_THROUGH) != 0;
}

} // namespace

void replaceFile(const std::string& path, const std::string& bytes) {
    requireNoOtherKind(path);
    const std::string neighbour = unpredictableNeighbour(path);
    const std::wstring from = toNativePath(neighbour).wstring();
    const std::wstring to = toNativePath(path).wstring();
    const bool exists = GetFileAttributesW(to.c_str()) != INVALID_FILE_ATTRIBUTES;
    writeNew(from, path, bytes);
    if (!moveIntoPlace(from, to, exists)) {
        const DWORD code = GetLastError();
        // With the old file gone, the new bytes are the only ones there are.
        if (!exists || GetFileAttributesW(to.c_str()) != INVALID_FILE_ATTRIBUTES) {
            DeleteFileW(from.c_str());
        }
        fail(path, code);
    }
}

} // namespace turnpost
