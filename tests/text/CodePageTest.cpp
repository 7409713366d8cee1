#include "text/CodePage.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <vector>

#ifdef _WIN32
#include <windows.h>
#endif

namespace turnpost {

using Cases = std::vector<std::pair<std::string, std::string>>;

TEST(CodePage, ReadsForeignEncodingsAndWritesTheSystems) {
    const std::string foreign = "J\u00FCrgen \u0416\u0101";
    std::string text = foreign;
    std::string bytes = foreign;
#ifdef _WIN32
    if (const char* due = std::getenv("TURNPOST_CODE_PAGE")) {
        EXPECT_EQ(std::to_string(GetACP()), due) << "these tests ran with another one";
    }
    if (GetACP() == 1252) {
        text = "J\u00FCrgen \u20AC";
        bytes = "J\xFCrgen \x80";
    } else if (GetACP() == 1251) {
        text = "\u0418\u0433\u0440\u043E\u043A \u20AC";
        bytes = "\xC8\xE3\xF0\xEE\xEA \x88";
    } else if (GetACP() == 932) {
        text = "\u8868\u3042 \u0416";
        bytes = "\x95\x5C\x82\xA0 \x84\x47";
    }
    EXPECT_EQ(toWireBytes(text), bytes);
    EXPECT_EQ(toFileBytes("\u0101"), bytes == foreign ? "\u0101" : "?") << "an \"a\" hides it";
    EXPECT_EQ(hasWireBytes(0x101), bytes == foreign);
    for (size_t position = 0; position < text.size();) {
        EXPECT_TRUE(hasWireBytes(nextCodePoint(text, position))) << "before byte " << position;
    }
#else
    EXPECT_EQ(toWireBytes("J\u00FCrgen \u20AC \u0416"), "J\xFCrgen \x80 ?");
#endif
    EXPECT_EQ(toFileBytes(text), bytes);
    Cases cases = {{bytes, text}, {text, text}, {foreign, foreign}};
    if (bytes == foreign) {
        cases.emplace_back("J\xFCrgen", "J\u00FCrgen");
    }
    for (const auto& [given, read] : cases) {
        EXPECT_EQ(fromFileBytes(given), read);
        EXPECT_EQ(fromWireBytes(given), read);
    }
    EXPECT_EQ(fromFileBytes("\xEF\xBB\xBF\"a\""), "\"a\"") << "a byte order mark is no value";
}

} // namespace turnpost
