#include "automation/ScriptedServer.h"
#include "automation/Waiting.h"
#include "support/WindowTest.h"
#include "text/CodePage.h"
#include "text/InvisibleCharacters.h"

#include <algorithm>

namespace turnpost::automation {

// All 16 players, who get no files, and a server that accepts everything. `meanwhile` is what the
// host does when the server has received a given line on a given connection.
class Addresses : public WindowTest {
  protected:
    Addresses() {
        host().startGame(server.address(), {{1, 10}});
        host().desktop().app().storeAttachments({0, 0, {}});
        for (size_t row = 0; row < rowCount; ++row) {
            addressOf(row) = "p" + std::to_string(row + 1) + "@example.org";
            host().desktop().app().game().rows[row].IncludePlayer = 1;
        }
    }

    std::string& addressOf(size_t row) {
        return host().desktop().app().game().rows[row].PlayerEmail;
    }

    void send() {
        host().watcher().expectReport();
        host().click("butSend");
        ASSERT_TRUE(waitUntil([this] { return host().watcher().done(); }));
        host().watcher().takeTexts();
    }

    // What the server received as the address of each row, in order.
    std::vector<std::string> recipients() const {
        std::vector<std::string> received;
        for (const auto& conversation : server.conversations()) {
            for (const std::string& command : conversation.commands) {
                if (command.starts_with("RCPT TO:")) {
                    received.push_back(command.substr(8));
                }
            }
        }
        return received;
    }

    std::function<void(Point, int)> meanwhile = [](Point, int) {};
    ScriptedServer server{[this](Point point, int connection, const std::string&) {
        meanwhile(point, connection);
        return goodAnswer(point);
    }};
};

// Must hold on each code page that the tests run with.
TEST_F(Addresses, AddressesGoOutAsShownOrNotAtAll) {
    const std::array<char32_t, rowCount> characters = {
        '?',  0xE9,    0x20AC, 0x142,  0x436, 0x3A9,  0x3042, 0x6F22,
        0xA5, 0x1F600, 0x301,  0x200B, 0xAD,  0xFEFF, 0xA0,   0xFF1F};
    std::vector<std::string> expected;
    std::array<bool, rowCount> sent{};
    for (size_t row = 0; row < rowCount; ++row) {
        std::string address = "a";
        appendUtf8(address, characters.at(row));
        addressOf(row) = address + "b@example.org";
        sent.at(row) = hasWireBytes(characters.at(row)) && !isInvisible(characters.at(row));
        if (sent.at(row)) {
            expected.push_back(toWireBytes(addressOf(row)));
            EXPECT_EQ(fromWireBytes(expected.back()), addressOf(row)) << "no other address";
        }
    }
    send();
    EXPECT_EQ(recipients(), expected);
    for (size_t row = 0; row < rowCount; ++row) {
        const std::string& line = values().report[row];
        EXPECT_EQ(line == "Email sent OK", sent.at(row)) << addressOf(row);
        EXPECT_EQ(line.starts_with("The address cannot be sent: "), !sent.at(row)) << line;
    }
#ifndef _WIN32
    EXPECT_EQ(recipients()[1], "a\xE9"
                               "b@example.org");
    EXPECT_EQ(values().report[3],
              "The address cannot be sent: \"Send via SMTP\" cannot write character 2 (ł, U+0142)");
#endif
}

TEST_F(Addresses, AddressesTypedDuringASendAreChecked) {
    meanwhile = [this](Point point, int connection) {
        if (point == Point::Mail && connection == 0) {
            addressOf(0) = "\u200Bp1@example.org";
        } else if (point == Point::Data && connection == 1) {
            addressOf(1) = "p2\u2060@example.org";
        } else if (point == Point::Helo && connection == 2) {
            host().desktop().app().storeEmailSettings("Host", "host\uFEFF@example.org",
                                                      server.address());
        }
    };
    if (toFileBytes("\uFEFF") == "?") {
        host().watcher().expectMessage(); // The settings cannot be read back.
    }
    send();
    const std::string theirs = "The address cannot be sent: character ";
    const std::string own = "Your own address cannot be sent: character 5 is invisible (U+FEFF)";
    SendReport lines;
    lines.fill(own);
    lines[0] = theirs + "1 is invisible (U+200B)";
    lines[1] = theirs + "3 is invisible (U+2060)";
    EXPECT_EQ(reportText(values().report), reportText(lines));
    EXPECT_EQ(recipients(), std::vector<std::string>{"p2@example.org"});
    for (const auto& conversation : server.conversations()) {
        EXPECT_FALSE(conversation.delivered);
        EXPECT_EQ(conversation.message, "");
        for (const std::string& command : conversation.commands) {
            EXPECT_EQ(command.find('?'), std::string::npos) << command;
        }
    }
    EXPECT_EQ(boxBy("butSend"), own);
    EXPECT_EQ(server.conversations().size(), rowCount);
}

} // namespace turnpost::automation
