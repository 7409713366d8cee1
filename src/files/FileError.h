#pragma once

#include <stdexcept>
#include <string>
#include <system_error>

namespace turnpost {

/// The system's own words for an error, in UTF-8.
std::string systemReason(std::error_code code);

/// A file could not be read or written. Holds the full path and the reason in words for the host.
/// Each command catches it; it must not reach the window system.
class FileError : public std::runtime_error {
  public:
    FileError(std::string path, const std::string& reason)
        : std::runtime_error(reason), filePath_(std::move(path)) {}
    FileError(std::string path, std::error_code code)
        : FileError(std::move(path), systemReason(code)) {}

    const std::string& path() const { return filePath_; }
    std::string reason() const { return what(); }

  private:
    std::string filePath_;
};

} // namespace turnpost
