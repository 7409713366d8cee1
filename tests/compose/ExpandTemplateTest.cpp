#include "compose/ExpandTemplate.h"

#include <gtest/gtest.h>

namespace turnpost {

TEST(ExpandTemplate, ReplacesEveryOccurrenceOnceInFixedOrder) {
    const auto expand = [](const std::string& text, const std::string& player,
                           const std::string& game = "Alpha") {
        return ExpandTemplate(text, game, 11, player, 2405);
    };
    EXPECT_EQ(expand("<<gn>> << GN >> <<GN> <<GN", ""), "<<gn>> << GN >> <<GN> <<GN");
    EXPECT_EQ(expand("<<FN>>, <<GY>>: <<GN>>/<<PN>><<PN>>\r\n<<FN>>", "Gold\t1 W. Admiral"),
              "Gold\t1, 2405: Alpha/1212\r\nGold\t1");
    // Only the later steps scan a value that was put in.
    EXPECT_EQ(expand("<<GN>>!", "Gold", "<<PN>> <<FN>> <<GY>> <<GN>>"), "12 Gold 2405 <<GN>>!");
    EXPECT_EQ(expand("<<FN>>", "<<GN>><<PN>><<GY>>"), "<<GN>><<PN>>2405");
    EXPECT_EQ(expand("<<FN>>", " Gold"), "");
}

} // namespace turnpost
