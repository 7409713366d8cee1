#include "smtp/MessageText.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <numeric>

namespace turnpost {

class MessageTexts : public testing::Test {
  protected:
    MessageTexts() {
        settings.HostName = "Game Host";
        settings.HostEmail = " host@example.org ";
        player.PlayerName = "Red Leader";
        player.PlayerEmail = " red@example.org";
        state.PlayerSubject = "Turn 2405";
        state.PlayerBody = "Hello Red,";
    }

    // The whole message text as it goes over the wire.
    std::string text() const {
        const auto sends = messageText(settings, player, state);
        return std::accumulate(sends.begin(), sends.end(), std::string());
    }

    // All that this address makes of the conversation before the message text.
    std::string commandsFor(const std::string& address) {
        settings.HostEmail = player.PlayerEmail = address;
        return heloLine(settings) + mailLine(settings) + recipientLine(player);
    }

    Settings settings;
    PlayerSlot player;
    SendState state;
};

TEST_F(MessageTexts, AreExactToTheByteAndOnlyTheEnvelopeIsTrimmed) {
    state.AttachmentText = "begin 664 A\r\n`\r\n`\r\nend\r\n\r\n";
    player.AltEmail = " alt@example.org";
    const std::vector<std::string> expected = {
        "From:Game Host < host@example.org >\r\n",
        "To:Red Leader < red@example.org>\r\n",
        "CC:Red Leader< alt@example.org>\r\n",
        "Subject:Turn 2405\r\n\r\n",
        "Hello Red,\r\n\r\nbegin 664 A\r\n`\r\n`\r\nend\r\n\r\n\r\n",
        ".\r\n"};
    EXPECT_EQ(messageText(settings, player, state), expected);
    EXPECT_EQ(commandsFor("  a@b@c "), "HELO a\r\nMAIL FROM:a@b@c\r\nRCPT TO:a@b@c\r\n");
    for (const char* empty : {"", "   ", "\r\n"}) {
        EXPECT_TRUE(commandsFor(empty).starts_with("HELO localhost\r\nMAIL FROM:\r\n"));
    }
    EXPECT_TRUE(commandsFor(" example.org ").starts_with("HELO example.org\r\n"));
}

TEST_F(MessageTexts, NoValueCanAddACommandARecipientOrAHeader) {
    for (const std::string lineBreak : {"\r\n", "\n", "\r", "\r\n\r\n"}) {
        std::string hostile = "a";
        hostile.append(lineBreak).append("RCPT TO:evil@example.org").append(lineBreak).append(".");
        settings.HostName = player.PlayerName = player.AltEmail = state.PlayerSubject = hostile;
        const std::string commands = commandsFor(hostile);
        const std::string header = text().substr(0, text().find("\r\n\r\n") + 2);
        EXPECT_EQ(header.find("\r\nSubject:a "), header.rfind("\r\n", header.size() - 3));
        for (const auto& [lines, count] : {std::pair(commands, 3), std::pair(header, 4)}) {
            EXPECT_EQ(std::count(lines.begin(), lines.end(), '\r'), count) << lines;
            EXPECT_EQ(std::count(lines.begin(), lines.end(), '\n'), count) << lines;
        }
    }
}

TEST_F(MessageTexts, EveryLeadingPeriodIsDoubledAndNoBodyCanEndTheMessageEarly) {
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"", ""},
        {".first\r\n.second", "..first\r\n..second"},
        {"..\r\n.\r\nx", "...\r\n..\r\nx"},
        {"a.\r\nb .c", "a.\r\nb .c"},
        {"a\n.b\r.\r\n", "a\r\n..b\r\n..\r\n"},
        {"\n.\r", "\r\n..\r\n"}};
    state.AttachmentText = ".xyz\r\nend\r\n\r\n";
    for (const auto& [body, expected] : cases) {
        state.PlayerBody = body;
        EXPECT_EQ(text().substr(text().find("\r\n\r\n") + 4),
                  expected + "\r\n\r\n..xyz\r\nend\r\n\r\n\r\n.\r\n");
    }
}

#ifndef _WIN32
TEST_F(MessageTexts, EveryPartGoesOutAsSingleBytes) {
    settings.HostName = player.PlayerName = "J\u00FCrgen \u20AC";
    player.AltEmail = "\u00E4@\u0416";
    state.PlayerSubject = state.PlayerBody = state.AttachmentText = "\u2013\U0001F600";
    EXPECT_EQ(commandsFor("\u00E4@\u0416"), "HELO \xE4\r\nMAIL FROM:\xE4@?\r\nRCPT TO:\xE4@?\r\n");
    EXPECT_EQ(text(), "From:J\xFCrgen \x80 <\xE4@?>\r\nTo:J\xFCrgen \x80 <\xE4@?>\r\n"
                      "CC:J\xFCrgen \x80<\xE4@?>\r\nSubject:\x96?\r\n\r\n"
                      "\x96?\r\n\r\n\x96?\r\n.\r\n");
}
#endif

} // namespace turnpost
