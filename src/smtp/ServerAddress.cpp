#include "smtp/ServerAddress.h"

#include <charconv>

namespace turnpost {

std::optional<ServerAddress> parseServerAddress(std::string_view text) {
    const size_t colon = text.find(':');
    ServerAddress address{std::string(text.substr(0, colon))};
    if (colon != std::string_view::npos) {
        const std::string_view digits = text.substr(colon + 1);
        const char* end = digits.data() + digits.size();
        const auto [stop, error] = std::from_chars(digits.data(), end, address.port);
        if (error != std::errc() || stop != end || address.port == 0) {
            return std::nullopt;
        }
    }
    if (address.host.empty()) {
        return std::nullopt;
    }
    return address;
}

} // namespace turnpost
