#include "storage/SettingsFile.h"

#include "fakes/TempFolder.h"
#include "files/FileError.h"
#include "storage/DividedLines.h"

#include <gtest/gtest.h>

#ifndef _WIN32
#include "support/Unprivileged.h"
#endif

namespace turnpost {

class SettingsText : public testing::Test {
  protected:
    // Expects this many of the sample's lines, and start values for the rest.
    void expectReads(const std::string& text, size_t lines = 8) const {
        const SettingsReading reading = parseSettings(text);
        const std::string mine = printSettings(sample);
        const std::string empty = printSettings(Settings());
        std::string expected;
        for (size_t i = 0; i < 8; ++i) {
            expected += linesOf(i < lines ? mine : empty).at(i);
        }
        EXPECT_EQ(printSettings(reading.settings), expected) << text;
        EXPECT_EQ(reading.damaged, lines < 8) << text;
    }

    Settings sample{.HostName = "Game Host",
                    .HostEmail = "host@example.org",
                    .SmtpServer = "mail:2525",
                    .StoredGames = {{{"Spring, Cup", "C:\\Cup\\CUP.NTP"}}},
                    .DefaultGameFile = "C:\\C.NTP"};
};

TEST_F(SettingsText, HasEightLinesInFixedOrder) {
    std::string expected = "\"Game Host\"\r\n\"host@example.org\"\r\n\"mail:2525\"\r\n"
                           "\"Spring, Cup\",\"C:\\Cup\\CUP.NTP\"\r\n\" - Empty - \",\"\"\r\n"
                           "\" - Empty - \",\"\"\r\n\" - Empty - \",\"\"\r\n\"C:\\C.NTP\"\r\n";
    EXPECT_EQ(printSettings(sample), expected);
    expectReads("x" + expected, 0);
    for (const char* trailing : {"\x1A", "x", "\"x\"\r\n"}) {
        expectReads(expected + trailing);
    }
    std::erase(expected, '\r');
    expectReads(expected);
    sample.HostName = "\"The\" Host";
    expected.replace(1, 4, "\"The\"");
    expectReads(expected);
    sample = {.HostName = "a, b", .HostEmail = "c", .SmtpServer = "d"};
    sample.StoredGames = {{{"1", "2"}, {"", ""}, {"", ""}, {"", ""}}};
    expectReads("  \"a, b\" , \"c\",\"d\" ,1,\"2\"\r\"\",\"\",\"\",\"\",\"\",\"\"\n\n");
}

TEST_F(SettingsText, CutAtAnyByteKeepsOnlyWholeLines) {
    sample.HostName = "\"The\", \"Host";
    sample.SmtpServer = "a\",\"b";
    sample.StoredGames[0].StoredGameName = "\"Cup\"";
    const std::string text = printSettings(sample);
    for (size_t length = 0, lines = 0; length < text.size() - 2; ++length) {
        const std::string cut = text.substr(0, length);
        lines += cut.ends_with("\r\n") ? 1 : 0;
        for (const std::string& trailing : {std::string(), std::string("\x1A"), '\0' + text}) {
            expectReads(cut + trailing, lines);
        }
    }
    expectReads(text.substr(0, text.size() - 2));
}

class SettingsFiles : public SettingsText {
  protected:
    using Names = std::set<std::string>;
    using Outcome = SettingsFile::Outcome;

    void expectRead(Outcome outcome, const Settings& expected) {
        Settings settings = sample;
        EXPECT_EQ(file.read(settings), outcome);
        EXPECT_EQ(settings, expected);
    }

    TempFolder program;
    TempFolder configuration;
    SettingsFile file{program.path(), configuration.path()};
};

TEST_F(SettingsFiles, DamagedFilesAreKeptBeforeTheyAreOverwritten) {
    const std::string damaged = "\"Host\"\r\n\"host@exam";
    program.write("TURNPOST.INI", damaged);
    expectRead(Outcome::Damaged, {.HostName = "Host"});
    EXPECT_EQ(program.names(), Names({"TURNPOST.INI"}));
    file.write(Settings());
    file.write(sample);
    EXPECT_EQ(program.names(), Names({"TURNPOST.BAD", "TURNPOST.INI"}));
    EXPECT_EQ(program.read("TURNPOST.INI"), printSettings(sample));
    // The same holds for a file that could not be read.
    std::filesystem::remove(toNativePath(file.path()));
    program.makeFolder("TURNPOST.INI");
    EXPECT_THROW(file.read(sample), FileError);
    std::filesystem::remove(toNativePath(file.path()));
    program.write("TURNPOST.INI", "of the host");
    file.write(sample);
    EXPECT_EQ(program.read("TURNPOST.BAD"), damaged) << "something else took its place";
    EXPECT_EQ(program.read("TURNPOST.BAD2"), "of the host");
}

TEST_F(SettingsFiles, GoIntoTheProgramsOrTheConfigurationFolder) {
    expectRead(Outcome::Missing, Settings());
    file.write(sample);
    EXPECT_EQ(program.names(), Names({"TURNPOST.INI"}));
    EXPECT_EQ(configuration.names(), Names());
    program.makeFolder("bin");
    EXPECT_EQ(SettingsFile(program.path("bin"), "there").path(), joinPath("there", "TURNPOST.INI"));
    file = SettingsFile(program.path("missing"), joinPath(configuration.path("not"), "yet"));
    file.write(sample);
    EXPECT_EQ(configuration.names(), Names({"not"}));
    expectRead(Outcome::Read, sample);
}

#ifndef _WIN32
TEST_F(SettingsFiles, AreReadFromAReadOnlyProgramFolder) {
    const auto pathInReadOnlyFolder = [this] {
        std::filesystem::permissions(program.path(), std::filesystem::perms(0555));
        const Unprivileged person;
        return SettingsFile(program.path(), configuration.path()).path();
    };
    EXPECT_EQ(pathInReadOnlyFolder(), configuration.path("TURNPOST.INI"));
    std::filesystem::permissions(program.path(), std::filesystem::perms(0755));
    program.write("turnpost.ini", "\"J\xFCrgen\"" + printSettings(Settings()).substr(2));
    EXPECT_EQ(pathInReadOnlyFolder(), program.path("TURNPOST.INI"));
    expectRead(Outcome::Read, {.HostName = "J\u00FCrgen"});
}
#endif

} // namespace turnpost
