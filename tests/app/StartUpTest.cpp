#include "app/AppFixture.h"

namespace turnpost {

using StartUp = AppFixture;

TEST_F(StartUp, BadSettingsAreReportedAndTheProgramRunsOn) {
    storeSettings("The \"Great\" Host");
    EXPECT_EQ(boxes(), Texts());
    storeSettings("Red\" \r\n\"Host");
    EXPECT_EQ(boxes(), Texts{"Not all of this can be read back from " + ini + advice});
    program.write("TURNPOST.INI", "\"Host\"\r\n\"host@exam");
    program.write("TURNPOST.BAD", "older");
    application.startUp();
    EXPECT_EQ(boxes(),
              Texts{"The settings file is damaged: " + ini +
                    "\r\nWhat could be read was taken; the rest is empty. Before the settings "
                    "are saved, the damaged file is kept beside it as TURNPOST.BAD2."});
    EXPECT_EQ(values.game.GameName, "") << "the game before is still there";
    std::filesystem::remove(toNativePath(ini));
    program.makeFolder("TURNPOST.INI");
    application.startUp();
    EXPECT_EQ(boxes(), Texts{"Cannot read " + ini + "\r\nIt is a folder, not a file"});
    EXPECT_EQ(windows.shown.back(), "main window");
    storeSettings("Ann");
    EXPECT_EQ(boxes(), Texts{"Cannot write " + ini + "\r\nIt is a folder, not a file"});
    EXPECT_EQ(values.settings.HostName, "Ann") << "the values stay until the end of the program";
}

} // namespace turnpost
