#include "platform/CodePage.h"

#include <gtest/gtest.h>
#include <utility>
#include <vector>

namespace turnpost {

using Cases = std::vector<std::pair<std::string, std::string>>;

TEST(CodePage, EveryByteOfWindows1252SurvivesTheWayThereAndBack) {
    for (int value = 0; value < 256; ++value) {
        const std::string byte(1, static_cast<char>(value));
        EXPECT_TRUE(isUtf8(fromWindows1252(byte))) << value;
        EXPECT_EQ(toWindows1252(fromWindows1252(byte)), byte) << value;
    }
}

TEST(CodePage, CharactersHaveTheBytesThatOtherProgramsGiveThem) {
    const Cases cases = {{"\x80", "\u20AC"},  {"\x81", "\xC2\x81"}, {"\x84", "\u201E"},
                         {"\x8A", "\u0160"},  {"\x91", "\u2018"},   {"\x96", "\u2013"},
                         {"\x99", "\u2122"},  {"\x9F", "\u0178"},   {"\xE4", "\u00E4"},
                         {"A~\r\n", "A~\r\n"}};
    for (const auto& [bytes, text] : cases) {
        EXPECT_EQ(fromWindows1252(bytes), text);
        EXPECT_EQ(toWindows1252(text), bytes);
    }
}

TEST(CodePage, WhatHasNoByteBecomesOneQuestionMark) {
    const Cases cases = {{"\u0416", "?"}, {"a\U0001F600z", "a?z"}, {"\u0085", "?"},
                         {"\u2028", "?"}, {"a\xE2\x82", "a??"},    {"\xE2\x82z", "??z"}};
    for (const auto& [text, bytes] : cases) {
        EXPECT_EQ(toWindows1252(text), bytes);
    }
}

TEST(CodePage, MalformedUtf8IsToldFromWellFormed) {
    for (const char* good : {"", "az\n", "\xC2\x80", "\xDF\xBF", "\xE0\xA0\x80", "\xED\x9F\xBF",
                             "\xEE\x80\x80", "\xF0\x90\x80\x80", "\xF4\x8F\xBF\xBF"}) {
        EXPECT_TRUE(isUtf8(good)) << testing::PrintToString(good);
    }
    for (const char* bad : {"\x80", "\xC1\xBF", "\xC3", "\xC3z", "\xE0\x9F\xBF", "\xE2\x82z",
                            "\xED\xA0\x80", "\xF0\x9F\x98", "\xF0\x8F\xBF\xBF", "\xF4\x90\x80\x80",
                            "\xF5\x80\x80\x80", "\xFF", "good\xC3\xC3"}) {
        EXPECT_FALSE(isUtf8(bad)) << testing::PrintToString(bad);
    }
}

#ifndef _WIN32
TEST(CodePage, FilesAndRepliesAreReadableInEitherEncoding) {
    for (const char* bytes : {"J\xFCrgen", "J\xC3\xBCrgen"}) {
        EXPECT_EQ(fromFileBytes(bytes), "J\u00FCrgen");
        EXPECT_EQ(fromWireBytes(bytes), "J\u00FCrgen");
    }
    EXPECT_EQ(fromFileBytes("\xEF\xBB\xBF\"a\""), "\"a\"") << "a byte order mark is no value";
    EXPECT_EQ(fromFileBytes(toFileBytes("J\u00FCrgen \u0416")), "J\u00FCrgen \u0416");
    EXPECT_EQ(toWireBytes("J\u00FCrgen \u20AC \u0416"), "J\xFCrgen \x80 ?");
}
#endif

} // namespace turnpost
