#include "roster/HostFile.h"

#include "fakes/TempFolder.h"
#include "platform/FileError.h"
#include "platform/Messages.h"

#include <gtest/gtest.h>

namespace turnpost {

class HostFile : public testing::Test {
  protected:
    void writeHostFile(const std::string& name, int yearsSince2400) const {
        const std::string year = {static_cast<char>(yearsSince2400 & 255),
                                  static_cast<char>(yearsSince2400 >> 8)};
        temp.write(name, std::string(12, '\x7F') + year);
    }

    std::string yearOf(const std::string& name) const {
        try {
            return std::to_string(readGameYear(temp.path(name)));
        } catch (const FileError& error) {
            EXPECT_EQ(error.path(), temp.path(name));
            return error.reason();
        }
    }

    TempFolder temp;
};

TEST_F(HostFile, YearIsLittleEndianUnsignedAndCountedFrom2400UpToWhatFits) {
    for (const int number : {5, 0x0100, 0, 0x00FF, 30367}) {
        writeHostFile("GAME.HST", number);
        EXPECT_EQ(yearOf("GAME.HST"), std::to_string(number + 2400));
    }
    for (const int number : {30368, 0x8000, 0xFFFF}) {
        writeHostFile("GAME.HST", number);
        EXPECT_EQ(yearOf("GAME.HST"), messages::hostYearTooLarge()) << number;
    }
    temp.write("SHORT.HST", std::string(13, '\1'));
    EXPECT_EQ(yearOf("SHORT.HST"), messages::hostFileTooShort());
    EXPECT_EQ(yearOf("NONE.HST"),
              std::make_error_code(std::errc::no_such_file_or_directory).message());
}

TEST_F(HostFile, RowsFollowTheTurnFilesOfAnyCaseAndHiddenOnesKeepWhatTheyHold) {
    writeHostFile("my.cup.hst", 5);
    for (const char* name : {"MY.CUP.M1", "my.cup.m2", "MY.CUP.M16", "MY.CUP.M17", "OTHER.M5"}) {
        temp.write(name, "turn");
    }
    temp.makeFolder("MY.CUP.M6");
    GameDetails game;
    game.rows.fill({0, "Name", "mail@example.org", "alt@example.org", "OLD.M1", true});
    chooseHostFile(game, temp.path(), "my.cup.hst");
    for (int i = 0; i < rowCount; ++i) {
        const PlayerSlot& row = game.rows[static_cast<size_t>(i)];
        const bool expected = i == 0 || i == 1 || i == 15;
        EXPECT_EQ(row.Shown, expected) << i;
        EXPECT_EQ(row.IncludePlayer, expected ? 1 : 0) << i;
        EXPECT_EQ(row.PlayerName + row.PlayerEmail + row.AltEmail,
                  expected ? "" : "Namemail@example.orgalt@example.org");
        EXPECT_EQ(row.GameFile, expected ? "my.cup.M" + std::to_string(i + 1) : "OLD.M1") << i;
    }
    EXPECT_EQ(game.GamePath, withSeparator(temp.path()));
    EXPECT_EQ(game.HostFileName, "my.cup.hst");
    EXPECT_EQ(game.GameYear, 2405);
}

} // namespace turnpost
