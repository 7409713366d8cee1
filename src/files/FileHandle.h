#pragma once

#include <string>
#include <utility>
#include <windows.h>

namespace turnpost {

inline constexpr DWORD shareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

/// Owns a file handle and closes it.
class FileHandle {
  public:
    explicit FileHandle(HANDLE opened) : handle_(opened) {}
    FileHandle(const FileHandle&) = delete;
    FileHandle& operator=(const FileHandle&) = delete;
    ~FileHandle() { close(); }

    bool isOpen() const { return handle_ != INVALID_HANDLE_VALUE; }
    HANDLE get() const { return handle_; }
    void close() {
        if (isOpen()) {
            CloseHandle(std::exchange(handle_, INVALID_HANDLE_VALUE));
        }
    }

  private:
    HANDLE handle_;
};

/// Opens a file or folder to read its attributes, even if it is open elsewhere; follows links.
FileHandle openForQueries(const std::string& path);

/// Throws FileError with the system's words for this error number.
[[noreturn]] void throwSystemError(const std::string& path, DWORD code);

} // namespace turnpost
