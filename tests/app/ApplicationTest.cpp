#include "app/AppFixture.h"

namespace turnpost {

using OneProgram = AppFixture;

TEST_F(OneProgram, MapiReplacesOnlyAStalledSmtpSend) {
    const Texts refused = {"A send is already in progress"};
    socket.silent = std::chrono::seconds(59);
    application.butSend_Click();
    application.sendByMailSystem();
    EXPECT_EQ(boxes(), refused);
    EXPECT_EQ(values.report[0], "");
    socket.arrive("220 ready\r\n");
    EXPECT_EQ(socket.sent.back(), "HELO host\r\n") << "the send must go on";
    socket.silent = std::chrono::seconds(60);
    application.sendByMailSystem();
    EXPECT_EQ(windows.shown.back(), "report");
    EXPECT_FALSE(socket.isOpen());
    socket.arrive("250 late\r\n");
    EXPECT_EQ(values.report[0], "Email Generated OK");
    socket.silent = std::chrono::seconds(0);
    application.butSend_Click();
    socket.Close();
    application.sendByMailSystem();
    EXPECT_EQ(boxes(), Texts());
}

// A mail client may run its own event loop in any of its calls, so that each button can be pressed.
TEST_F(OneProgram, NothingElseSendsInsideAMailClient) {
    mail->inSend = [this] {
        game.rows[3].PlayerEmail = "late@example.org";
        application.takeSendStep();
        application.butSend_Click();
        application.sendByMailSystem();
        return std::nullopt;
    };
    for (const std::string address : {"four@example.org", "late@example.org"}) {
        application.sendByMailSystem();
        std::erase_if(mailCalls, [](const std::string& call) { return !call.starts_with("Addr"); });
        EXPECT_EQ(std::exchange(mailCalls, {}),
                  Texts({"Address one@example.org", "Address " + address}));
        EXPECT_EQ(boxes(), Texts(4, "A send is already in progress"));
    }
    EXPECT_EQ(values.report[0] + values.report[3], "Email Generated OKEmail Generated OK");
    EXPECT_EQ(socket.servers, Texts());
}

TEST_F(OneProgram, BadSettingsAreReportedAndTheProgramRunsOn) {
    const std::string ini = program.path("TURNPOST.INI");
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
