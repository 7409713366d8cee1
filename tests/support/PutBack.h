#pragma once

#include <cstdlib>
#include <optional>
#include <string>

namespace turnpost {

/// Gives an environment variable the value back that it had before, or removes it again.
class PutBack {
  public:
    explicit PutBack(const char* name) : name_(name) {
        if (const char* value = std::getenv(name)) {
            before_ = value;
        }
    }
    PutBack(const PutBack&) = delete;
    PutBack& operator=(const PutBack&) = delete;
    ~PutBack() {
#ifdef _WIN32
        _putenv_s(name_, before_.value_or("").c_str());
#else
        before_ ? setenv(name_, before_->c_str(), 1) : unsetenv(name_);
#endif
    }

  private:
    const char* name_;
    std::optional<std::string> before_;
};

} // namespace turnpost
