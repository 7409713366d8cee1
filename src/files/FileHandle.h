#pragma once

#include <string>
#include <utility>
#include <windows.h>

namespace turnpost {

inline constexpr DWORD shareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

/// A handle of a file that is closed with its owner.
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

/// Opens a file or folder to be asked about: links followed, whoever else holds it.
FileHandle openForQueries(const std::string& path);

/// Throws FileError with the words for an error number of the system.
[[noreturn]] void throwSystemError(const std::string& path, DWORD code);

} // namespace turnpost
