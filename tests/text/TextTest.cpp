#include "text/Text.h"

#include <gtest/gtest.h>

namespace turnpost {

TEST(Text, TrimsFoldsShortensAndBreaksLines) {
    EXPECT_EQ(trimSpaces("  a b\t "), "a b\t");
    EXPECT_EQ(trimSpaces("  "), "");
    EXPECT_EQ(oneLine("a\r\nb\rc\nd\u2028e\u2029\u2028f\r\n"), "a b c d e  f ");
    EXPECT_EQ(withCrLf("a\r\nb\rc\nd\n\r"), "a\r\nb\r\nc\r\nd\r\n\r\n");
    EXPECT_EQ(foldCase("@AZ[\u00C0\u00DE\u00D7\u00DF\u00E4\u0100"),
              "@az[\u00E0\u00FE\u00D7\u00DF\u00E4\u0100");
    EXPECT_EQ(shortened("\u00E4b\u00E4de", 5), "\u00E4b\u00E4de");
    EXPECT_EQ(shortened("\u00E4b\u00E4d\u00EA", 4), "\u00E4b...d\u00EA");
}

} // namespace turnpost
