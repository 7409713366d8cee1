#include "compose/ExpandTemplate.h"

#include <gtest/gtest.h>

namespace turnpost {

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
