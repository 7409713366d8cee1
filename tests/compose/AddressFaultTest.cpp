#include "compose/AddressFault.h"

#include "text/CodePage.h"

#include <gtest/gtest.h>

namespace turnpost {

TEST(AddressFault, NamesTheFirstUnsendableCharacter) {
    const auto fault = [](const std::string& address, Transport transport = Transport::Mapi) {
        return addressFault(address, transport).value_or(Refusal()).words;
    };
    EXPECT_EQ(fault("p1\r\n\u2028\u200B@\u00A0"), "character 5 is invisible (U+200B)");
    EXPECT_EQ(fault("\u00A0\u00AD"), "character 1 is invisible (U+00A0)");
    EXPECT_EQ(fault("a\u200D"), "character 2 is invisible (U+200D)");
    EXPECT_EQ(fault("a?\U0001F600@\u00E4.org"), "");
    EXPECT_EQ(fault("a?\U0001F600@\u00E4.org", Transport::Smtp),
              hasWireBytes(0x1F600)
                  ? ""
                  : "\"Send via SMTP\" cannot write character 3 (\U0001F600, U+1F600)");
}

} // namespace turnpost
