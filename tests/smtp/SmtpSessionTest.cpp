#include "smtp/SendFixture.h"
#include "text/CodePage.h"
#include "text/InvisibleCharacters.h"

namespace turnpost {

class SmtpSessions : public SendFixture {
  protected:
    SmtpSessions() {
        for (int row = 0; row < rowCount; ++row) {
            addPlayer(row, "P", "p" + std::to_string(row) + "@x.org");
        }
    }
};

// Must hold on each code page that the tests run with.
TEST_F(SmtpSessions, AddressesGoOutAsShownOrNotAtAll) {
    const std::array<char32_t, rowCount> characters = {
        '?',  0xE9,    0x20AC, 0x142,  0x436, 0x3A9,  0x3042, 0x6F22,
        0xA5, 0x1F600, 0x301,  0x200B, 0xAD,  0xFEFF, 0xA0,   0xFF1F};
    for (size_t row = 0; row < rowCount; ++row) {
        std::string address = "a";
        appendUtf8(address, characters.at(row));
        game.rows.at(row).PlayerEmail = address + "b@x.org";
    }
    driver.butSend_Click();
    accept(6 * rowCount);
    size_t sent = 0;
    for (size_t row = 0; row < rowCount; ++row) {
        const std::string& address = game.rows.at(row).PlayerEmail;
        SCOPED_TRACE(address);
        if (hasWireBytes(characters.at(row)) && !isInvisible(characters.at(row))) {
            EXPECT_EQ(report[row], "Email sent OK");
            const std::string bytes = toWireBytes(address);
            EXPECT_EQ(fromWireBytes(bytes), address) << "another address";
            EXPECT_NE(socket.sent.at(sent++).find("\r\nRCPT TO:" + bytes + "\r\n"),
                      std::string::npos);
        } else {
            EXPECT_TRUE(report[row].starts_with("The address cannot be sent: ")) << report[row];
        }
    }
    EXPECT_EQ(socket.sent.size(), sent);
}

TEST_F(SmtpSessions, AddressesTypedDuringASendAreChecked) {
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
