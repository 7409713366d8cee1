#pragma once

#include <cstdint>

namespace turnpost::bench {

/// Starts a mail server that accepts everything and keeps nothing. It runs until the program ends
/// and serves one connection after another. Returns its port on 127.0.0.1. Throws when there is
/// none.
std::uint16_t startSink();

} // namespace turnpost::bench
