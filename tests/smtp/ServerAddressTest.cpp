#include "smtp/ServerAddress.h"

#include <gtest/gtest.h>

namespace turnpost {

TEST(ServerAddresses, HaveAHostAndAPortFrom1To65535) {
    for (const auto& [text, parsed] : {std::pair("mail", "mail 25"),
                                       {"127.0.0.1:1", "127.0.0.1 1"},
                                       {"mail:065535", "mail 65535"}}) {
        const ServerAddress address = parseServerAddress(text).value();
        EXPECT_EQ(address.host + " " + std::to_string(address.port), parsed);
    }
    for (const char* text : {"m:", "m:0", "m:65536", "m:99999999999999999999", "m:-25", "m:+25",
                             "m:smtp", "m:25x", "m: 25", "m:0x19", "m:25:26", ":25", ""}) {
        EXPECT_FALSE(parseServerAddress(text)) << text;
    }
}

} // namespace turnpost
