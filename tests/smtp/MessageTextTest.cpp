#include "smtp/MessageText.h"

#include <gtest/gtest.h>

namespace turnpost {

TEST(MessageTexts, HeloNameComesFromTheHostsAddress) {
    for (const auto& [address, helo] : {std::pair("a@b@c", "HELO a\r\n"),
                                        {" x.org ", "HELO x.org\r\n"},
                                        {"  \r\n", "HELO localhost\r\n"}}) {
        EXPECT_EQ(heloLine({"", address, "", {}, ""}), helo);
    }
}

} // namespace turnpost
