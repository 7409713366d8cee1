#include "fakes/FakeDisplay.h"
#include "fakes/FakeSocket.h"
#include "fakes/TempFolder.h"
#include "smtp/SendDriver.h"
#include "text/CodePage.h"

#include <gtest/gtest.h>

namespace turnpost {

TEST(SmtpSession, WritesEveryLineInTheCodePage) {
#ifdef _WIN32
    if (toWireBytes("é€Ω") != "\xE9\x80?") {
        GTEST_SKIP() << "another code page than that of the expected bytes";
    }
#endif
    const TempFolder temp;
    temp.write("GAMÉ.M1", "Cat");
    GameDetails game{"Über Ω", withSeparator(temp.path()), "", 2405, {}};
    game.rows[0] = {1, "Réné Ω", "é€@x.org", "ł@x.org", "GAMÉ.M1", true};
    const MessageTemplate text{"Tour é → <<GN>>", ".ÿ – 銀"};
    const AttachmentChoices attachments{1, 0, {}};
    const Settings settings{"Zoë Ł", "hôte@x.org", "mail", {}, ""};
    SendReport report;
    FakeSocket socket;
    FakeDisplay display;
    SendDriver driver({game, text, attachments}, settings, report, socket, display, display);
    driver.butSend_Click();
    for (int step = 0; step < 6; ++step) {
        socket.arrive("250 ok\r\n");
    }
    EXPECT_EQ(report[0], "Email sent OK");
    ASSERT_EQ(socket.sent.size(), 1U);
    EXPECT_EQ(socket.sent[0], "HELO h\xF4te\r\n"
                              "MAIL FROM:h\xF4te@x.org\r\n"
                              "RCPT TO:\xE9\x80@x.org\r\n"
                              "DATA\r\n"
                              "From:Zo\xEB ? <h\xF4te@x.org>\r\n"
                              "To:R\xE9n\xE9 ? <\xE9\x80@x.org>\r\n"
                              "CC:R\xE9n\xE9 ?<?@x.org>\r\n"
                              "Subject:Tour \xE9 ? \xDC\x62"
                              "er ?\r\n\r\n"
                              "..\xFF \x96 ?\r\n\r\n"
                              "begin 664 GAM\xC9.M1\r\n#0V%T\r\n`\r\nend\r\n\r\n"
                              "\r\n.\r\nQUIT\r\n");
}

} // namespace turnpost
