#include "app/AppFixture.h"

namespace turnpost {

class StartUp : public AppFixture {};

TEST_F(StartUp, AFirstRunAsksForTheSettingsBeforeTheWindowIsShown) {
    for (PlayerSlot& row : application.game().rows) {
        row = {1, "x", "x", "x", "x", true};
    }
    windows.inEmailSettings = [this] {
        application.storeEmailSettings("Host", "host@example.org", "mail");
    };
    application.startUp();
    EXPECT_EQ(windows.shown, Texts({"Nimbus Turnpost Version 1.3.0", "e-mail settings",
                                    "progress 0.000000", "values", "main window"}));
    EXPECT_EQ(program.read("TURNPOST.INI"), printSettings(values.settings));
    for (const PlayerSlot& row : values.game.rows) {
        EXPECT_FALSE(row.Shown);
        EXPECT_EQ(row.PlayerName + row.PlayerEmail + row.AltEmail + row.GameFile, "");
    }
}

TEST_F(StartUp, AFileThatCannotBeReadOrWrittenIsNamedAndTheProgramRunsOn) {
    program.makeFolder("TURNPOST.INI");
    application.startUp();
    ASSERT_EQ(windows.boxes.size(), 1U);
    EXPECT_TRUE(
        windows.boxes[0].starts_with("Cannot read " + program.path("TURNPOST.INI") + "\r\n"));
    EXPECT_EQ(windows.shown.back(), "main window");
    EXPECT_EQ(values.settings, Settings());
    application.storeEmailSettings("Host", "host@example.org", "mail");
    EXPECT_TRUE(windows.boxes.back().starts_with("Cannot write " + program.path("TURNPOST.INI")));
    EXPECT_EQ(values.settings.SmtpServer, "mail") << "the values stay for the run";
}

} // namespace turnpost
