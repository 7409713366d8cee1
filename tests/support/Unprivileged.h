#pragma once

#include <unistd.h>

namespace turnpost {

/// While it lives, a process of root loses the right to read and write everything.
class Unprivileged {
  public:
    Unprivileged() : wasRoot_(geteuid() == 0 && seteuid(65534) == 0) {}
    Unprivileged(const Unprivileged&) = delete;
    Unprivileged& operator=(const Unprivileged&) = delete;
    ~Unprivileged() {
        if (wasRoot_ && seteuid(0) != 0) {
            _exit(1);
        }
    }

  private:
    bool wasRoot_;
};

} // namespace turnpost
