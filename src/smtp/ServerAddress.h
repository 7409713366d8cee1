#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace turnpost {

struct ServerAddress {
    std::string host;
    std::uint16_t port = 25;
};

/// Splits a server setting into the host before the first ":" and the decimal port after it, 25
/// without ":". Nothing when the host is empty or the port is not a decimal number from 1 to 65535.
std::optional<ServerAddress> parseServerAddress(std::string_view text);

} // namespace turnpost
