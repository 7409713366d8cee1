#include "compose/ExpandTemplate.h"

#include <gtest/gtest.h>

namespace turnpost {

TEST(ExpandTemplate, EveryOccurrenceIsReplacedOnceAndInItsOrder) {
    const auto expand = [](const std::string& text, const std::string& game,
                           const std::string& player) {
        return ExpandTemplate(text, game, 11, player, 2405);
    };
    EXPECT_EQ(expand("<<gn>> << GN >> <<GN> <<GN", "Alpha", ""), "<<gn>> << GN >> <<GN> <<GN");
    EXPECT_EQ(expand("<<FN>>, <<GY>>: <<GN>>/<<PN>><<PN>>\r\n<<FN>>", "Alpha", "Gold W. Admiral"),
              "Gold, 2405: Alpha/1212\r\nGold");
    // A value put in is scanned by the later steps only.
    EXPECT_EQ(expand("<<GN>>!", "<<PN>> <<FN>> <<GY>> <<GN>>", "Gold"), "12 Gold 2405 <<GN>>!");
    EXPECT_EQ(expand("<<FN>>", "Alpha", "<<GN>><<PN>><<GY>>"), "<<GN>><<PN>>2405");
    // The first name ends at the first space and at nothing else.
    EXPECT_EQ(expand("<<FN>>", "", "A\tB C") + expand("<<FN>>", "", " Gold"), "A\tB");
}

TEST(ExpandTemplate, TheDefaultTemplateIsExactToTheLastLine) {
    EXPECT_EQ(defaultTemplate().MessageSubject, "Turn <<GY>> for <<GN>> - Player <<PN>>");
    const std::string body =
        "Hello <<FN>>,\r\n\r\nAttached is turn <<GY>> for <<GN>>\r\n\r\n"
        "Please make sure that you Save & Submit, and return your X<<PN>> file\r\n\r\n\r\n"
        "This message has been sent to you using Nimbus Turnpost Version ";
    EXPECT_EQ(defaultTemplate({2, 10, 4}).MessageBody, body + "2.10.4");
    EXPECT_EQ(defaultTemplate().MessageBody, body + "1.3.0");
}

} // namespace turnpost
