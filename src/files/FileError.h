#pragma once

#include <stdexcept>
#include <string>
#include <system_error>

namespace turnpost {

/// The system's own words for an error, as UTF-8 whatever its language.
std::string systemReason(std::error_code code);

/// A file could not be read or written. Carries the full path and the system's own reason as text
/// for a person; caught where a command ends, never let through to the window system.
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
