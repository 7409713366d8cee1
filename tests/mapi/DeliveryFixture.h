#pragma once

#include "fakes/FakeDisplay.h"
#include "fakes/TempFolder.h"
#include "mapi/MailDelivery.h"

#include <gtest/gtest.h>

namespace turnpost {

/// A game whose second player gets the mail, with the mail system of the test.
class DeliveryFixture : public testing::Test {
  protected:
    using Texts = std::vector<std::string>;

    DeliveryFixture() {
        game.GamePath = withSeparator(temp.path());
        game.GameYear = 2405;
    }

    /// Sends, and returns the player's line.
    std::string deliver(MailSession& session, MailMessages& mail) {
        const DispatchInputs inputs{game, text, attachments};
        MailDelivery(inputs, report, state, session, mail, display, display).deliver();
        return report[1];
    }

    TempFolder temp;
    GameDetails game;
    PlayerSlot& player = game.rows[1];
    MessageTemplate text{"Turn <<GY>>", "Hello\r\n.<<PN>>"};
    AttachmentChoices attachments{0, 0, {}};
    SendReport report;
    SendState state;
    FakeDisplay display;
};

} // namespace turnpost
