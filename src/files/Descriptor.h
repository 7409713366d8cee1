#pragma once

#include <unistd.h>
#include <utility>

namespace turnpost {

/// A file descriptor that is closed with its owner; -1 stands for none.
class Descriptor {
  public:
    explicit Descriptor(int opened = -1) : number(opened) {}
    Descriptor(Descriptor&& other) noexcept : number(std::exchange(other.number, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        std::swap(number, other.number);
        return *this;
    }
    ~Descriptor() { close(); }

    int get() const { return number; }
    void close() {
        if (number >= 0) {
            ::close(std::exchange(number, -1));
        }
    }

  private:
    int number;
};

} // namespace turnpost
