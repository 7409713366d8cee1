#pragma once

#include "compose/MUUEncode.h"
#include "fakes/FakeDisplay.h"
#include "fakes/FakeSocket.h"
#include "fakes/TempFolder.h"
#include "smtp/SendDriver.h"

#include <gtest/gtest.h>

namespace turnpost {

/// A driver with its session, a server played by the test, and a game whose folder holds a host
/// file but no turn files; turn files are not sent unless a test says so.
class SendFixture : public testing::Test {
  protected:
    using Texts = std::vector<std::string>;
    using Fractions = std::vector<double>;

    SendFixture() {
        temp.write("GAME.HST", "host");
        game.GamePath = withSeparator(temp.path());
        game.GameYear = 2405;
    }

    void include(std::initializer_list<size_t> rows) {
        for (const size_t row : rows) {
            const std::string number = std::to_string(row + 1);
            const std::string file = "GAME.M" + number;
            game.rows[row] = {1, "P" + number + " Name", "p@" + number, "", file, true};
        }
    }

    /// The server accepts the row under way: all six steps, or some of them.
    void accept(size_t end = 6, size_t first = 0) {
        const Texts replies = {"220 hello\r\n", "250 a\r\n",  "250 b\r\n",
                               "250 c\r\n",     "354 go\r\n", "250 queued\r\n"};
        for (size_t step = first; step < end; ++step) {
            socket.arrive(replies.at(step));
        }
    }

    /// The message to a player, with or without attached blocks, from HELO to QUIT.
    static std::string conversation(const std::string& number, const std::string& blocks = "") {
        return "HELO host\r\nMAIL FROM:host@example.org\r\nRCPT TO:p@" + number +
               "\r\nDATA\r\nFrom:Host <host@example.org>\r\nTo:P" + number + " Name <p@" + number +
               ">\r\nSubject:Turn 2405\r\n\r\nHello P" + number + "\r\n\r\n" + blocks +
               "\r\n.\r\nQUIT\r\n";
    }

    static std::string block(const std::string& name) {
        return uuencodedBlock(name, name) + "\r\n";
    }

    TempFolder temp;
    GameDetails game;
    MessageTemplate text{"Turn <<GY>>", "Hello <<FN>>"};
    AttachmentChoices attachments{0, 0, {}};
    Settings settings{"Host", "host@example.org", "mail", {}, ""};
    SendReport report;
    FakeSocket socket;
    FakeDisplay display;
    SendDriver driver{{game, text, attachments}, settings, report, socket, display, display};
};

} // namespace turnpost
