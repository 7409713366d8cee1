#include "compose/ExpandTemplate.h"

#include <gtest/gtest.h>

namespace turnpost {

TEST(ExpandTemplate, EveryOccurrenceIsReplacedOnceAndInItsOrder) {
    const auto expand = [](const std::string& text, const std::string& player,
                           const std::string& game = "Alpha") {
        return ExpandTemplate(text, game, 11, player, 2405);
    };
    EXPECT_EQ(expand("<<gn>> << GN >> <<GN> <<GN", ""), "<<gn>> << GN >> <<GN> <<GN");
    EXPECT_EQ(expand("<<FN>>, <<GY>>: <<GN>>/<<PN>><<PN>>\r\n<<FN>>", "Gold\t1 W. Admiral"),
              "Gold\t1, 2405: Alpha/1212\r\nGold\t1");
    // A value put in is scanned by the later steps only.
    EXPECT_EQ(expand("<<GN>>!", "Gold", "<<PN>> <<FN>> <<GY>> <<GN>>"), "12 Gold 2405 <<GN>>!");
    EXPECT_EQ(expand("<<FN>>", "<<GN>><<PN>><<GY>>"), "<<GN>><<PN>>2405");
    EXPECT_EQ(expand("<<FN>>", " Gold"), "");
}

TEST(ExpandTemplate, TheDefaultTemplateIsExactToTheLastLine) {
    EXPECT_EQ(defaultTemplate().MessageSubject, "Turn <<GY>> for <<GN>> - Player <<PN>>");
    EXPECT_EQ(defaultTemplate().MessageBody,
              "Hello <<FN>>,\r\n\r\nAttached is turn <<GY>> for <<GN>>\r\n\r\n"
              "Please make sure that you Save & Submit, and return your X<<PN>> file\r\n\r\n\r\n"
              "This message has been sent to you using Nimbus Turnpost Version 1.3.0");
}

} // namespace turnpost
