#pragma once

#include "fakes/FakeDisplay.h"
#include "fakes/FakeSocket.h"
#include "fakes/TempFolder.h"
#include "smtp/SendDriver.h"

#include <gtest/gtest.h>

namespace turnpost {

/// A driver with a game without players, and a server played by the test.
class SendFixture : public testing::Test {
  protected:
    using Texts = std::vector<std::string>;

    SendFixture() { temp.write("GAME.HST", "host"); }

    /// Lets a row get a message without files.
    void addPlayer(int row, const std::string& name, const std::string& address) {
        game.row(row) = {
            .IncludePlayer = 1, .PlayerName = name, .PlayerEmail = address, .Shown = true};
    }

    /// The server accepts the next steps of the current row, which has six.
    void accept(int steps = 6) {
        for (; steps > 0; --steps) {
            socket.arrive("250 ok\r\n");
        }
    }

    TempFolder temp;
    GameDetails game{.GamePath = withSeparator(temp.path())};
    MessageTemplate text{"Turn", "Hello <<FN>>"};
    AttachmentChoices attachments{0, 0, {}};
    Settings settings{.HostName = "Host", .HostEmail = "host@example.org", .SmtpServer = "mail"};
    SendReport report;
    FakeSocket socket;
    FakeDisplay display;
    SendDriver driver{{game, text, attachments}, settings, report, socket, display, display};
};

} // namespace turnpost
