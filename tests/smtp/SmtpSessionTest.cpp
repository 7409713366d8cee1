#include "smtp/SendFixture.h"

namespace turnpost {

using SmtpSessions = SendFixture;

TEST_F(SmtpSessions, AddressesTypedDuringASendAreChecked) {
    for (int row = 0; row < 6; ++row) {
        addPlayer(row, "P", "p" + std::to_string(row) + "@x.org");
    }
    driver.butSend_Click();
    for (const auto& [steps, address] : {std::pair(2, &game.rows[0].PlayerEmail),
                                         {4, &game.rows[1].PlayerEmail},
                                         {0, &settings.HostEmail},
                                         {1, &settings.HostEmail},
                                         {4, &settings.HostEmail}}) {
        accept(steps);
        const std::string before = std::exchange(*address, "p\u200B@x.org");
        accept(1);
        *address = before;
    }
    const std::string fault = "ddress cannot be sent: character 2 is invisible (U+200B)";
    const SendReport expected = {"The a" + fault, "The a" + fault, "Your own a" + fault,
                                 "Your own a" + fault, "Your own a" + fault};
    EXPECT_EQ(report, expected);
    const std::string begin = "HELO host\r\nMAIL FROM:host@example.org\r\n";
    EXPECT_EQ(socket.sent, Texts({begin, begin + "RCPT TO:p1@x.org\r\nDATA\r\n", "",
                                  "HELO host\r\n", begin + "RCPT TO:p4@x.org\r\nDATA\r\n", ""}));
}

} // namespace turnpost
