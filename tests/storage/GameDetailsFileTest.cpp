#include "storage/GameDetailsFile.h"

#include "fakes/TempFolder.h"
#include "files/FileError.h"
#include "text/CodePage.h"
#include "text/Text.h"

#include <gtest/gtest.h>

namespace turnpost {

class GameDetailsFiles : public testing::Test {
  protected:
    GameDetailsFiles() {
        game.rows[0] = {.IncludePlayer = 1,
                        .PlayerName = "Red Leader",
                        .PlayerEmail = "red@example.org",
                        .GameFile = "CUP.M1",
                        .Shown = true};
        game.rows[1] = {.PlayerName = "Blue, Fleet",
                        .PlayerEmail = "a@example.org",
                        .AltEmail = "b@example.org",
                        .GameFile = "CUP.M2",
                        .Shown = true};
        game.rows[2].IncludePlayer = 2;
    }

    std::string print() const { return printGameDetails(game, message); }

    void expectReads(const std::string& text) const {
        const GameFileReading reading = parseGameDetails(text);
        EXPECT_FALSE(reading.damage) << text;
        EXPECT_EQ(reading.content.game, game) << text;
        EXPECT_EQ(reading.content.message, message) << text;
    }

    // The damage that is reported when `from` is replaced in the sample's file.
    std::string damageBy(const std::string& from, const std::string& to) const {
        std::string text = print();
        return parseGameDetails(text.replace(text.find(from), from.size(), to))
            .damage.value_or(Refusal())
            .words;
    }

    GameDetails game{
        .GameName = "Spring Cup", .GamePath = "C:\\Games\\Cup\\", .HostFileName = "CUP.HST"};
    MessageTemplate message{"Turn <<GY>>", "Hello <<FN>>,\r\nyour turn."};
};

TEST_F(GameDetailsFiles, HaveTheExpectedLinesInFixedOrder) {
    std::string expected = "\"Spring Cup\"\r\n\"C:\\Games\\Cup\\\"\r\n\"CUP.HST\"\r\n"
                           "\"Turn <<GY>>\"\r\n\"Hello <<FN>>,\r\nyour turn.\"\r\n"
                           "1,1,\"Red Leader\",\"red@example.org\",\"\",\"CUP.M1\"\r\n"
                           "1,0,\"Blue, Fleet\",\"a@example.org\",\"b@example.org\",\"CUP.M2\"\r\n"
                           "0,2,\"\",\"\",\"\",\"\"\r\n";
    for (int row = 3; row < rowCount; ++row) {
        expected += "0,0,\"\",\"\",\"\",\"\"\r\n";
    }
    EXPECT_EQ(print(), expected);
    std::erase(expected, '\r');
    expectReads(expected);
}

TEST_F(GameDetailsFiles, AcceptLooselyWrittenFlagsAndEmptyTexts) {
    std::string text = print();
    for (const char* trailing : {"\x1A", "x", "\"x\"\r\n", "1,1,\"a\",\"b\",\"c\",\"d\"\r\n"}) {
        expectReads(text + trailing);
    }
    expectReads(text.replace(text.rfind("0,0"), std::string::npos, "0,0,,,,\r\n"));
    expectReads(text.replace(text.find("1,1"), 3, "+1,1 "));
    game.rows[0].IncludePlayer = -1;
    game.rows[0].PlayerName = "Red \"the\" Leader";
    game.rows[0].Shown = false;
    expectReads(text.replace(text.find("+1,1 ,\"Red "), 11, "-1,-1,\"Red \"the\" ") + "\r\n \r\n");
}

TEST_F(GameDetailsFiles, CutAtAnyByteCountAsDamaged) {
    message.MessageBody = "He \"read\"\r\n\"and, \"did\"";
    game.rows[15].PlayerName = oneLine(message.MessageBody);
    const std::string whole = print();
    for (size_t length = 0; length < whole.size() - 2; ++length) {
        EXPECT_TRUE(parseGameDetails(whole.substr(0, length)).damage) << length;
    }
    expectReads(whole.substr(0, whole.size() - 2));
    message.MessageBody = "\r\n1,1,\"its opening quote\",\"alone\",\"on its line\",\"is no end";
    expectReads(print());
}

TEST_F(GameDetailsFiles, AreNamedAfterTheSecondPlayersTurnFile) {
    for (const auto& [turnFile, name] :
         {std::pair("MY.CUP.M2", "MY.CUP.NTP"), {".M2", ".NTP"}, {"M2", "CUP.NTP"}}) {
        game.rows[1].GameFile = turnFile;
        EXPECT_EQ(gameDetailsFile(game), game.GamePath + name);
    }
}

TEST_F(GameDetailsFiles, DamageIsNamed) {
    const std::string noNumber = "A flag of player 1 is no number";
    for (const char* flags : {"x,1", "1,\"1\"", ",1", "1,", "+-1,1", "1,1.5", "1,99999999999"}) {
        EXPECT_EQ(damageBy("1,1", flags), noNumber) << flags;
    }
    EXPECT_EQ(damageBy("\"CUP.M1\"", "\"CUP.M1\",\"x\""), "A flag of player 2 is no number");
    const std::string notWhole = "It is not a game details file, or only part of one";
    EXPECT_EQ(damageBy("\"Spring Cup\"\r\n", ""), notWhole);
    EXPECT_EQ(damageBy("Hello", {"\0", 1}), notWhole);
    message.MessageBody = "One place\"\r\n1,1,\"and\",\"another\",\"for the\",\"rows";
    EXPECT_EQ(damageBy("Red Leader", "Red \"the\" Leader"), notWhole);
    message.MessageBody.clear();
    game.rows[15].PlayerName = "\",\"";
    EXPECT_EQ(damageBy("", ""), "Its double quotes leave several ways to read it");
    // A million values must not take minutes or all of the memory.
    EXPECT_EQ(parseGameDetails(std::string(1U << 20U, '\n')).damage, Refusal{noNumber});
}

TEST_F(GameDetailsFiles, UpToOneMebibyteAreReadInTheirCodePage) {
    const TempFolder temp;
    const std::string path = temp.path("GAME.NTP");
    game.rows[0].PlayerName = hasWireBytes(0xFC) ? "J\u00FCrgen" : "Ann";
    temp.write("GAME.NTP", toWireBytes(print()));
    EXPECT_EQ(readGameDetails(path).content.game, game);
    game.rows[0].PlayerName.clear();
    message.MessageBody += std::string((1U << 20) - print().size(), 'x');
    writeGameDetails(path, game, message);
    EXPECT_EQ(readGameDetails(path).content.message, message);
    message.MessageBody += 'x';
    EXPECT_THROW(writeGameDetails(path, game, message), FileError);
    temp.write("GAME.NTP", print());
    EXPECT_EQ(readGameDetails(path).damage, Refusal{"It is larger than 1 MiB"});
}

} // namespace turnpost
