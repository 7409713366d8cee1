#include "smtp/MessageText.h"

#include <gtest/gtest.h>

namespace turnpost {

class MessageTexts : public testing::Test {
  protected:
    // The commands, and the message text as it goes over the wire.
    std::string wire() const {
        std::string bytes = heloLine(settings) + mailLine(settings) + recipientLine(player);
        for (const std::string& sent : messageText(settings, player, state)) {
            bytes += sent;
        }
        return bytes;
    }

    Settings settings{"Game Host", " host@example.org ", "", {}, ""};
    PlayerSlot player{1, "Red Leader", " red@x@y", " alt@x ", "", true};
    SendState state;
};

TEST_F(MessageTexts, AreExactToTheByteAndOnlyTheEnvelopeIsTrimmed) {
    state.PlayerSubject = "Turn 2405";
    state.PlayerBody = "Hello Red,";
    state.AttachmentText = "begin 664 A\r\n`\r\n`\r\nend\r\n\r\n";
    EXPECT_EQ(wire(), "HELO host\r\nMAIL FROM:host@example.org\r\nRCPT TO:red@x@y\r\n"
                      "From:Game Host < host@example.org >\r\nTo:Red Leader < red@x@y>\r\n"
                      "CC:Red Leader< alt@x >\r\nSubject:Turn 2405\r\n\r\n"
                      "Hello Red,\r\n\r\nbegin 664 A\r\n`\r\n`\r\nend\r\n\r\n\r\n.\r\n");
    for (const auto& [address, helo] : {std::pair("a@b@c", "HELO a\r\n"),
                                        {" x.org ", "HELO x.org\r\n"},
                                        {"  \r\n", "HELO localhost\r\n"}}) {
        settings.HostEmail = address;
        EXPECT_EQ(heloLine(settings), helo);
    }
}

TEST_F(MessageTexts, NoValueCanAddACommandARecipientOrAHeaderOrEndTheMessageEarly) {
    const auto expectHarmless = [this](const std::string& lineBreak) {
        const std::string hostile = "a" + lineBreak + ".b" + lineBreak + "." + lineBreak;
        settings = {hostile, hostile, "", {}, ""};
        player = {1, hostile, hostile, hostile, "", true};
        state.PlayerSubject = state.PlayerBody = hostile;
        state.AttachmentText = ".xyz\r\nend\r\n\r\n";
        const std::string line = "a .b . ";
        EXPECT_EQ(wire(), "HELO a .b .\r\nMAIL FROM:a .b .\r\nRCPT TO:a .b .\r\nFrom:" + line +
                              " <" + line + ">\r\nTo:" + line + " <" + line + ">\r\nCC:" + line +
                              "<" + line + ">\r\nSubject:" + line +
                              "\r\n\r\na\r\n..b\r\n..\r\n\r\n\r\n..xyz\r\nend\r\n\r\n\r\n.\r\n");
    };
    expectHarmless("\r\n");
    expectHarmless("\n");
    expectHarmless("\r");
}

} // namespace turnpost
