#pragma once

#include <cstdint>

namespace turnpost::bench {

/// Starts a mail server that takes everything and keeps nothing, until the program ends; it serves
/// one connection after another. Gives its port on 127.0.0.1. Throws when there is none.
std::uint16_t startSink();

} // namespace turnpost::bench
