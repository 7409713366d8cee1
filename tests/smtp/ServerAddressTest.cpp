#include "smtp/ServerAddress.h"

#include <gtest/gtest.h>

namespace turnpost {

TEST(ServerAddress, PortIsTheNumberAfterTheFirstColonOr25AndElseThereIsNoServer) {
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"mail.example.org", "mail.example.org 25"},
        {"127.0.0.1:1", "127.0.0.1 1"},
        {"m:65535", "m 65535"},
        {"m:025", "m 25"}};
    for (const auto& [text, expected] : cases) {
        const ServerAddress address = parseServerAddress(text).value_or(ServerAddress{"none", 0});
        EXPECT_EQ(address.host + " " + std::to_string(address.port), expected);
    }
    for (const char* text : {"m:", "m:0", "m:65536", "m:99999999999999999999", "m:-25", "m:+25",
                             "m:smtp", "m:25x", "m: 25", "m:0x19", "m:25:26", ":25", ""}) {
        EXPECT_FALSE(parseServerAddress(text).has_value()) << text;
    }
}

} // namespace turnpost
