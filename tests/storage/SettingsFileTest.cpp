#include "storage/SettingsFile.h"

#include "fakes/TempFolder.h"
#include "platform/FileError.h"
#include "storage/QuotedValues.h"

#include <gtest/gtest.h>

#ifndef _WIN32
#include "support/Unprivileged.h"
#endif

namespace turnpost {

class SettingsText : public testing::Test {
  protected:
    Settings sample{"Game Host",
                    "host@example.org",
                    "mail:2525",
                    {{{"Spring, Cup", "C:\\Cup\\CUP.NTP"}, {}, {}, {}}},
                    "C:\\C.NTP"};

    // Reads the sample's first lines, and start values for the rest.
    void expectReadsLines(const std::string& text, size_t count) const {
        const std::string mine = printSettings(sample);
        const std::string empty = printSettings(Settings());
        std::string expected;
        for (size_t i = 0; i < 8; ++i) {
            expected += linesOf(i < count ? mine : empty).at(i);
        }
        expectReads(text, parseSettings(expected).settings, count < 8);
    }

    static void expectReads(const std::string& text, const Settings& expected,
                            bool damaged = false) {
        const SettingsReading reading = parseSettings(text);
        EXPECT_EQ(reading.damaged, damaged) << text;
        EXPECT_TRUE(reading.settings == expected) << text << printSettings(reading.settings);
    }
};

TEST_F(SettingsText, HasEightLinesOfValuesInTheOrderOtherReadersExpect) {
    std::string expected = "\"Game Host\"\r\n\"host@example.org\"\r\n\"mail:2525\"\r\n"
                           "\"Spring, Cup\",\"C:\\Cup\\CUP.NTP\"\r\n\" - Empty - \",\"\"\r\n"
                           "\" - Empty - \",\"\"\r\n\" - Empty - \",\"\"\r\n\"C:\\C.NTP\"\r\n";
    EXPECT_EQ(printSettings(sample), expected);
    for (const char* behind : {"", "\x1A", "x", "\"x\"\r\n", "x,\"y\"\r\n"}) {
        expectReads(expected + behind, sample);
    }
    std::erase(expected, '\r');
    expectReads(expected, sample);
    expected.replace(1, 4, "\"The\"");
    sample.HostName = "\"The\" Host";
    expectReads(expected, sample);
    sample.DefaultGameFile = "";
    expectReads(expected.substr(0, expected.rfind("\"C:")) + "\n", sample);
    expectReads("  \"a, b\" , \"c\",\"d\" ,1,\"2\"\r\"\",\"\",\"\",\"\",\"\",\"\"\n\"e\"\r\n \r\n",
                {"a, b", "c", "d", {{{"1", "2"}, {"", ""}, {"", ""}, {"", ""}}}, "e"});
}

TEST_F(SettingsText, CutAtAnyByteKeepsTheWholeLinesAndNothingElseWhateverQuotesTheyHold) {
    sample.HostName = "\"The\", \"Host";
    sample.SmtpServer = "a\",\"b";
    sample.StoredGames[0].StoredGameName = "\"Cup\"";
    const std::string text = printSettings(sample);
    for (size_t length = 0, lines = 0; length < text.size() - 2; ++length) {
        lines += text.substr(0, length).ends_with("\r\n") ? 1 : 0;
        expectReadsLines(text.substr(0, length), lines);
        expectReadsLines(text.substr(0, length) + '\x1A', lines);
        expectReadsLines(text.substr(0, length) + '\0' + text.substr(length), lines);
    }
    expectReads(text.substr(0, text.size() - 2), sample);
}

TEST_F(SettingsText, ALineWithDamageOrTooManyValuesPutsNoneIntoAnyField) {
    const auto read = [this](const std::string& from, const std::string& to, size_t lines) {
        std::string text = printSettings(sample);
        expectReadsLines(text.replace(text.find(from), from.size(), to), lines);
    };
    read("\"Game Host\"", "Game\"Host", 0);
    read("\"host@example.org\"", "\"host@example.org\",\"x", 1);
    read("\"Spring, Cup\"", "\"Spring\",\"Cup\"", 3);
}

class SettingsFiles : public SettingsText {
  protected:
    using Names = std::set<std::string>;
    using Outcome = SettingsFile::Outcome;

    void expectRead(Outcome outcome, const Settings& expected) {
        EXPECT_EQ(file.read(settings), outcome);
        EXPECT_TRUE(settings == expected) << printSettings(settings);
    }

    TempFolder program;
    TempFolder configuration;
    Settings settings = sample;
    SettingsFile file{program.path(), configuration.path()};
};

TEST_F(SettingsFiles, ADamagedOneIsKeptBeforeItIsOverwrittenAndOnlyThen) {
    const std::string damaged = "\"Host\"\r\n\"host@exam";
    program.write("TURNPOST.INI", damaged);
    expectRead(Outcome::Damaged, {"Host", "", "", {}, ""});
    EXPECT_EQ(program.names(), Names({"TURNPOST.INI"}));
    EXPECT_EQ(file.copyPath(), program.path("TURNPOST.BAD"));
    file.write(Settings());
    file.write(sample);
    EXPECT_EQ(program.names(), Names({"TURNPOST.BAD", "TURNPOST.INI"}));
    EXPECT_EQ(program.read("TURNPOST.BAD"), damaged) << "the good file took its place";
    EXPECT_EQ(program.read("TURNPOST.INI"), printSettings(sample));
    const std::string large = printSettings(sample) + std::string(1U << 20U, 'x');
    program.write("TURNPOST.INI", large);
    expectRead(Outcome::Damaged, sample);
    EXPECT_EQ(file.copyPath(), program.path("TURNPOST.BAD2"));
    settings.HostName = std::string(1U << 20U, 'x');
    EXPECT_THROW(file.write(settings), FileError);
    EXPECT_EQ(program.read("TURNPOST.INI"), large) << "nobody could read what would replace it";
    file.write(sample);
    EXPECT_EQ(program.read("TURNPOST.BAD"), damaged) << "the second took the place of the first";
    EXPECT_EQ(program.read("TURNPOST.BAD2"), large);
    std::filesystem::resize_file(toNativePath(file.path()), mostFileBytes + 1);
    expectRead(Outcome::Damaged, sample);
    EXPECT_THROW(file.write(Settings()), FileError);
    EXPECT_EQ(std::filesystem::file_size(toNativePath(file.path())), mostFileBytes + 1)
        << "lost, since it could not be kept";
}

TEST_F(SettingsFiles, OneThatCannotBeReadIsReportedAndKeptOnceThatIsPossible) {
    program.makeFolder("TURNPOST.INI");
    EXPECT_THROW(file.read(settings), FileError);
    EXPECT_EQ(settings, Settings());
    EXPECT_THROW(file.write(sample), FileError);
    std::filesystem::remove(toNativePath(file.path()));
    file.write(sample);
    program.write("TURNPOST.INI", "of the host");
    file.write(sample);
    EXPECT_EQ(program.read("TURNPOST.BAD"), "of the host");
    EXPECT_EQ(program.read("TURNPOST.INI"), printSettings(sample));
}

TEST_F(SettingsFiles, GoIntoTheProgramsFolderOrTheConfigurationFolderWhenThatTakesNone) {
    expectRead(Outcome::Missing, Settings());
    EXPECT_EQ(program.names(), Names());
    file.write(sample);
    EXPECT_EQ(program.names(), Names({"TURNPOST.INI"}));
    EXPECT_EQ(configuration.names(), Names());
    const std::string unwritable = program.path("missing");
    const std::string deep = joinPath(configuration.path("not"), "yet");
    file = SettingsFile(unwritable, deep);
    file.write(sample);
    EXPECT_EQ(configuration.names(), Names({"not"}));
    expectRead(Outcome::Read, sample);
    EXPECT_EQ(SettingsFile(unwritable, "").path(), joinPath(unwritable, "TURNPOST.INI"));
}

#ifndef _WIN32
TEST_F(SettingsFiles, InAFolderThatMayOnlyBeReadAreReadThere) {
    const auto pathForAnybody = [this] {
        std::filesystem::permissions(program.path(), std::filesystem::perms(0555));
        const Unprivileged person;
        file = SettingsFile(program.path(), configuration.path());
        return file.path();
    };
    EXPECT_EQ(pathForAnybody(), configuration.path("TURNPOST.INI"));
    std::filesystem::permissions(program.path(), std::filesystem::perms(0755));
    program.write("turnpost.ini", "\"J\xFCrgen\"" + printSettings(Settings()).substr(2));
    configuration.write("TURNPOST.INI", printSettings(sample));
    EXPECT_EQ(pathForAnybody(), program.path("TURNPOST.INI"));
    std::filesystem::permissions(program.path(), std::filesystem::perms(0755));
    Settings expected;
    expected.HostName = "J\u00FCrgen";
    expectRead(Outcome::Read, expected);
    file.write(settings);
    EXPECT_EQ(program.names(), Names({"turnpost.ini"}));
    expectRead(Outcome::Read, expected);
}
#endif

} // namespace turnpost
