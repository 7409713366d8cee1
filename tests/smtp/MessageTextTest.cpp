#include "smtp/MessageText.h"
#include "text/CodePage.h"

#include <gtest/gtest.h>
#include <numeric>

namespace turnpost {

TEST(MessageTexts, HeloNameComesFromTheHostsAddress) {
    for (const auto& [address, helo] : {std::pair("a@b@c", "HELO a\r\n"),
                                        {" x.org ", "HELO x.org\r\n"},
                                        {"  \r\n", "HELO localhost\r\n"}}) {
        EXPECT_EQ(heloLine({.HostEmail = address}), helo);
    }
}

// The bytes of all that the program sends, except DATA and QUIT.
TEST(MessageTexts, EveryByteIsOfTheCodePage) {
#ifdef _WIN32
    if (toWireBytes("é€Ω") != "\xE9\x80?") {
        GTEST_SKIP() << "another code page than that of the expected bytes";
    }
#endif
    const Settings settings{.HostName = "Zoë Ł", .HostEmail = " hôte@x.org\r\n"};
    PlayerSlot player{.PlayerName = "Réné\nΩ", .PlayerEmail = "é€@x.org ", .AltEmail = "ł@x.org"};
    SendState state;
    state.AttachmentText = "begin 664 GAMÉ.M1\r\n#0V%T\r\n.\r\n`\r\nend\r\n\r\n";
    state.PlayerBody = ".ÿ – 銀\n.\r\nend";
    state.PlayerSubject = "Tour é →\r\nÜber Ω";
    const auto sent = [&] {
        const auto sends = messageText(settings, player, state);
        return std::accumulate(sends.begin(), sends.end(), std::string());
    };
    EXPECT_EQ(heloLine(settings), "HELO h\xF4te\r\n");
    EXPECT_EQ(mailLine(settings), "MAIL FROM:h\xF4te@x.org\r\n");
    EXPECT_EQ(recipientLine(player), "RCPT TO:\xE9\x80@x.org\r\n");
    EXPECT_EQ(sent(), "From:Zo\xEB ? < h\xF4te@x.org >\r\n"
                      "To:R\xE9n\xE9 ? <\xE9\x80@x.org >\r\n"
                      "CC:R\xE9n\xE9 ?<?@x.org>\r\n"
                      "Subject:Tour \xE9 ? \xDC\x62"
                      "er ?\r\n\r\n"
                      "..\xFF \x96 ?\r\n..\r\nend\r\n\r\n"
                      "begin 664 GAM\xC9.M1\r\n#0V%T\r\n..\r\n`\r\nend\r\n\r\n"
                      "\r\n.\r\n");
    EXPECT_EQ(state.AttachmentText, "");
    player.AltEmail = "";
    EXPECT_EQ(sent().find("CC:"), std::string::npos);
}

} // namespace turnpost
