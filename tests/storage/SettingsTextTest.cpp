#include "storage/SettingsFile.h"

#include <gtest/gtest.h>

namespace turnpost {

class SettingsText : public testing::Test {
  protected:
    static std::vector<std::string*> fieldsOf(Settings& settings) {
        std::vector<std::string*> fields = {&settings.HostName, &settings.HostEmail,
                                            &settings.SmtpServer};
        for (StoredGame& slot : settings.StoredGames) {
            fields.insert(fields.end(), {&slot.StoredGameName, &slot.StoredGameFile});
        }
        fields.push_back(&settings.DefaultGameFile);
        return fields;
    }

    // The sample up to its first values, start values after them.
    Settings upTo(size_t values) {
        Settings result;
        for (size_t i = 0; i < values; ++i) {
            *fieldsOf(result)[i] = *fieldsOf(sample)[i];
        }
        return result;
    }

    static void expectReads(const std::string& text, const Settings& expected,
                            bool damaged = false) {
        const SettingsReading reading = parseSettings(text);
        EXPECT_EQ(reading.damaged, damaged) << text;
        EXPECT_TRUE(reading.settings == expected) << text << printSettings(reading.settings);
    }

    Settings sample{"Game Host",
                    "host@example.org",
                    "mail:2525",
                    {{{"Spring Cup", "C:\\Cup\\CUP.NTP"}, {}, {}, {}}},
                    "C:\\C.NTP"};
};

TEST_F(SettingsText, HasEightLinesOfValuesInTheOrderOtherReadersExpect) {
    std::string expected = "\"Game Host\"\r\n\"host@example.org\"\r\n\"mail:2525\"\r\n"
                           "\"Spring Cup\",\"C:\\Cup\\CUP.NTP\"\r\n\" - Empty - \",\"\"\r\n"
                           "\" - Empty - \",\"\"\r\n\" - Empty - \",\"\"\r\n\"C:\\C.NTP\"\r\n";
    EXPECT_EQ(printSettings(sample), expected);
    std::erase(expected, '\r');
    expectReads(expected, sample);
    expected.replace(1, 4, "\"The\"");
    sample.HostName = "\"The\" Host";
    expectReads(expected, sample);
}

TEST_F(SettingsText, ValuesAreReadInOrderHoweverTheyAreGroupedIntoLines) {
    expectReads("  \"a, b\" , \"c\",\"d\" ,1,\"2\"\r\"\",\"\",\"\",\"\",\"\",\"\"\n\"e\"\r\n \r\n",
                {"a, b", "c", "d", {{{"1", "2"}, {"", ""}, {"", ""}, {"", ""}}}, "e"});
}

TEST_F(SettingsText, WhatFollowsTheLastValueIsNotReadAndThatValueMayBeEmptyWithoutQuotes) {
    const std::string text = printSettings(sample);
    for (const char* behind : {"\x1A", "x", "\"x\"\r\n", "x,\"y\"\r\n"}) {
        expectReads(text + behind, sample);
    }
    sample.DefaultGameFile = "";
    expectReads(text.substr(0, text.rfind("\"C:")) + "\r\n", sample);
}

TEST_F(SettingsText, CutAtAnyByteKeepsTheWholeLinesAndNothingElseWhateverQuotesTheyHold) {
    sample.HostName = "\"The\", \"Host";
    sample.SmtpServer = "a\",\"b";
    sample.StoredGames[0].StoredGameName = "\"Cup\"";
    const std::string text = printSettings(sample);
    constexpr size_t valuesUpToLine[] = {0, 1, 2, 3, 5, 7, 9, 11, 12};
    for (size_t length = 0, lines = 0; length <= text.size(); ++length) {
        const bool lineEnds = lines < 7 && text.substr(0, length).ends_with("\r\n");
        lines += lineEnds || text.substr(length) == "\r\n" ? 1 : 0;
        expectReads(text.substr(0, length), upTo(valuesUpToLine[lines]), lines < 8);
        if (lines < 8) {
            expectReads(text.substr(0, length) + '\0' + text.substr(length),
                        upTo(valuesUpToLine[lines]), true);
        }
    }
}

TEST_F(SettingsText, ALineWithDamageOrTooManyValuesPutsNoneIntoAnyField) {
    const auto read = [this](const std::string& from, const std::string& to, size_t values) {
        std::string text = printSettings(sample);
        expectReads(text.replace(text.find(from), from.size(), to), upTo(values), true);
    };
    read("\"Game Host\"", "Game\"Host", 0);
    read("\"host@example.org\"", "\"host@example.org\",\"x", 1);
    read("\"Spring Cup\"", "\"Spring\",\"Cup\"", 3);
}

} // namespace turnpost
