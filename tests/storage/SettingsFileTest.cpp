#include "storage/SettingsFile.h"

#include "fakes/TempFolder.h"
#include "platform/FileError.h"

#include <gtest/gtest.h>

namespace turnpost {

class SettingsFiles : public testing::Test {
  protected:
    using Names = std::set<std::string>;
    using Outcome = SettingsFile::Outcome;

    void expectRead(Outcome outcome, const Settings& expected) {
        EXPECT_EQ(file.read(settings), outcome);
        EXPECT_EQ(printSettings(settings), printSettings(expected));
    }

    const Settings sample{"Host, the", "host@example.org", "mail:2525", {}, "C:\\Cup\\CUP.NTP"};
    TempFolder program;
    TempFolder configuration;
    Settings settings = sample;
    SettingsFile file{program.path(), configuration.path()};
};

TEST_F(SettingsFiles, AMissingOneGivesStartValuesAndWhatIsWrittenIsReadByTheNextRun) {
    expectRead(Outcome::Missing, Settings());
    EXPECT_EQ(program.names(), Names());
    file.write(sample);
    file = SettingsFile(program.path(), configuration.path());
    expectRead(Outcome::Read, sample);
    EXPECT_EQ(program.names(), Names({"TURNPOST.INI"}));
    EXPECT_EQ(configuration.names(), Names());
}

TEST_F(SettingsFiles, ADamagedOneIsKeptBeforeItIsOverwrittenAndOnlyThen) {
    const std::string damaged = "\"Host\"\r\n\"host@exam";
    program.write("TURNPOST.INI", damaged);
    expectRead(Outcome::Damaged, {"Host", "", "", {}, ""});
    EXPECT_EQ(program.names(), Names({"TURNPOST.INI"}));
    EXPECT_EQ(file.copyPath(), program.path("TURNPOST.BAD"));
    file.write(Settings());
    file.write(sample);
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
    program.write("TURNPOST.INI", "of the host");
    file.write(sample);
    EXPECT_EQ(program.read("TURNPOST.BAD"), "of the host");
    EXPECT_EQ(program.read("TURNPOST.INI"), printSettings(sample));
}

TEST_F(SettingsFiles, GoIntoTheConfigurationFolderWhenTheProgramsTakesNone) {
    const std::string unwritable = program.path("missing");
    const std::string deep = joinPath(configuration.path("not"), "yet");
    file = SettingsFile(unwritable, deep);
    file.write(sample);
    EXPECT_EQ(configuration.names(), Names({"not"}));
    expectRead(Outcome::Read, sample);
    EXPECT_EQ(SettingsFile(unwritable, "").path(), joinPath(unwritable, "TURNPOST.INI"));
}

#ifndef _WIN32
TEST_F(SettingsFiles, BroughtOverFromWindowsKeepTheirLettersAndAnyCaseOfTheirName) {
    Settings expected;
    expected.HostName = "J\u00FCrgen";
    program.write("turnpost.ini", "\"J\xFCrgen\"" + printSettings(Settings()).substr(2));
    configuration.write("TURNPOST.INI", printSettings(sample));
    expectRead(Outcome::Read, expected);
    file.write(settings);
    EXPECT_EQ(program.names(), Names({"turnpost.ini"}));
    expectRead(Outcome::Read, expected);
}
#endif

} // namespace turnpost
