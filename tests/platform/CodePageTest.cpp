#include "platform/CodePage.h"

#include "platform/Text.h"

#include <gtest/gtest.h>
#include <utility>
#include <vector>

#ifdef _WIN32
#include <windows.h>
#endif

namespace turnpost {

using Cases = std::vector<std::pair<std::string, std::string>>;

TEST(CodePage, CharactersHaveTheBytesThatOtherProgramsGiveThem) {
    const Cases cases = {{"\x80", "\u20AC"}, {"\x81", "\xC2\x81"}, {"\x91", "\u2018"},
                         {"\x9F", "\u0178"}, {"\xE4", "\u00E4"},   {"A~\r\n", "A~\r\n"}};
    for (const auto& [bytes, text] : cases) {
        EXPECT_EQ(fromWindows1252(bytes), text);
        EXPECT_EQ(toWindows1252(text), bytes);
    }
    const Cases lost = {{"\u0416", "?"}, {"a\U0001F600z", "a?z"}, {"\u0085", "?"},
                        {"\u2028", "?"}, {"a\xE2\x82", "a??"},    {"\xE2\x82z", "??z"}};
    for (const auto& [text, bytes] : lost) {
        EXPECT_EQ(toWindows1252(text), bytes);
    }
}

TEST(CodePage, FilesAndRepliesOfAnySystemAreReadAndThoseOfThisOneWritten) {
    const std::string foreign = "J\u00FCrgen \u0416\u0101";
    std::string text = foreign;
    std::string bytes = foreign;
#ifdef _WIN32
    if (GetACP() == 1252) {
        text = "J\u00FCrgen \u20AC";
        bytes = "J\xFCrgen \x80";
    } else if (GetACP() == 1251) {
        text = "\u0418\u0433\u0440\u043E\u043A \u20AC";
        bytes = "\xC8\xE3\xF0\xEE\xEA \x88";
    }
    EXPECT_EQ(toWireBytes(text), bytes);
    EXPECT_EQ(toFileBytes("\u0101"), bytes == foreign ? "\u0101" : "?") << "an \"a\" hides it";
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

TEST(Text, IsTrimmedFoldedAndBrokenAsItsUsersExpect) {
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
