#pragma once

#include <unistd.h>
#include <utility>

namespace turnpost {

/// Owns a file descriptor and closes it; -1 stands for none.
class Descriptor {
  public:
    explicit Descriptor(int opened = -1) : number_(opened) {}
    Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        std::swap(number_, other.number_);
        return *this;
    }
    ~Descriptor() { close(); }

    int get() const { return number_; }
    /// False when the system could not write what it still had to; then errno says why. True when
    /// there is none to close.
    bool close() { return number_ < 0 || ::close(std::exchange(number_, -1)) == 0; }

  private:
    int number_;
};

} // namespace turnpost
