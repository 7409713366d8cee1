#pragma once

#include <QtGlobal>

namespace turnpost {

/// Tells a reset connection from one that the server has closed in good order. The toolkit reports
/// both alike and has closed its descriptor by then, so this one is kept beside it.
///
/// On Windows it can't tell yet: every close by the server counts as orderly there.
class ConnectionProbe {
  public:
    ConnectionProbe() = default;
    ConnectionProbe(const ConnectionProbe&) = delete;
    ConnectionProbe& operator=(const ConnectionProbe&) = delete;
    ~ConnectionProbe() { release(); }

    /// Watches the connection with this descriptor.
    void watch(qintptr descriptor);

    /// True when the connection ended by a reset.
    bool wasReset() const;

    /// Lets go; the connection can end for good only then.
    void release();

  private:
    int duplicate = -1;
};

} // namespace turnpost
