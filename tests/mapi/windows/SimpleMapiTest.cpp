#include "app/Application.h"
#include "fakes/FakeSocket.h"
#include "fakes/FakeWindows.h"
#include "fakes/TempFolder.h"
#include "mapi/SimpleMapiMessages.h"
#include "mapi/SimpleMapiSession.h"

#include <gtest/gtest.h>

namespace turnpost {

/// A program whose second player gets the mail through the system's own MAPI32.DLL. The recording
/// mail client has to be registered there.
class SimpleMapiTest : public testing::Test {
  protected:
    SimpleMapiTest() {
        SetEnvironmentVariableW(L"TURNPOST_RECORD", toNativePath(temp.path("record")).c_str());
        answer(L"TURNPOST_LOGON_CODE", 0);
        answer(L"TURNPOST_SEND_CODE", 0);
        application.storeEmailSettings("Host", "host@example.org", "mail");
        application.storeMessage({"\u20AC \u0416", "Gr\u00FC\u00DFe\r\n.\r\n"});
        application.storeAttachments({0, 0, {}});
        application.game().GamePath = withSeparator(folder);
        player = {.IncludePlayer = 1, .PlayerName = " One, \"the host\" ", .PlayerEmail = "one"};
    }
    ~SimpleMapiTest() override { DestroyWindow(window); }

    static void answer(const wchar_t* call, int code) {
        SetEnvironmentVariableW(call, std::to_wstring(code).c_str());
    }

    /// Sends, and returns the player's line.
    std::string deliver() {
        application.sendByMailSystem(parent);
        return application.values().report[1];
    }

    /// What the mail client was asked since the last call.
    std::string recorded() const {
        std::string lines = temp.read("record");
        std::filesystem::remove(toNativePath(temp.path("record")));
        return lines;
    }

    const HWND window =
        CreateWindowW(L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
    const std::uintptr_t parent = std::bit_cast<std::uintptr_t>(window);
    const std::string inParent = " window=" + std::to_string(parent);
    const std::string logon = "logon" + inParent + " profile= password= flags=0\n";
    const std::string logoff = "logoff session=12345678901234" + inParent + "\n";
    const std::string message = "send session=12345678901234" + inParent +
                                " flags=0\nsubject=\u20AC \u0416\ntext=Gr\u00FC\u00DFe\r\n.\r\n";
    const std::string recipient = "\nrecipient class=1 name= One, \"the host\"  address=";
    TempFolder temp;
    const std::string folder = fromNativePath(toNativePath(temp.path()).make_preferred());
    FakeWindows windows;
    FakeSocket socket;
    Application application{windows, socket, {folder, folder}};
    PlayerSlot& player = application.game().rows[1];
};

TEST_F(SimpleMapiTest, NeverLosesAnOpenSessionOrUsesAClosedOne) {
    const auto mapi = std::make_shared<SimpleMapi>();
    auto session = std::make_unique<SimpleMapiSession>(mapi);
    SimpleMapiMessages messages(mapi);
    session->ParentWindow(parent);
    session->SignOn();
    session->SignOn();
    EXPECT_EQ(recorded(), logon + logoff + logon);
    messages.SessionID(session->SessionID());
    session->SignOff();
    session->SignOff();
    EXPECT_EQ(messages.Send(), Refusal{"The mail session is no longer open (error 19)"});
    EXPECT_EQ(recorded(), logoff);
    session->SignOn();
    EXPECT_EQ(recorded(), logon);
    session.reset();
    EXPECT_EQ(recorded(), logoff);
}

TEST_F(SimpleMapiTest, EveryPartOfAMessageArrivesUnchanged) {
    player.PlayerEmail = " j\u00F6rg@example.org ";
    player.AltEmail = "two@example.org";
    player.GameFile = "\u0416\u00FC.M2";
    temp.write(player.GameFile, "x");
    temp.write("CUP.XY", "x");
    application.storeAttachments({1, 0, {temp.path("CUP.XY"), "", ""}});
    EXPECT_EQ(deliver(), "Email Generated OK");
    EXPECT_EQ(recorded(), logon + message + "\r\n  " + recipient +
                              "SMTP: j\u00F6rg@example.org \n"
                              "recipient class=2 name= One, \"the host\"  "
                              "address=SMTP:two@example.org\nfile position=0 flags=0 path=" +
                              joinPath(folder, player.GameFile) +
                              " name=NULL\nfile position=1 flags=0 path=" +
                              joinPath(folder, "CUP.XY") + " name=NULL\n" + logoff);
    application.storeAttachments({0, 0, {}});
    player.AltEmail = "";
    for (const auto& [typed, type] : {std::pair("SMTP:one@example.org", ""),
                                      {"fax:+1 234", ""},
                                      {"one@[IPv6:::1]", "SMTP:"},
                                      {"\"a:b\"@example.org", "SMTP:"},
                                      {":one", "SMTP:"}}) {
        player.PlayerEmail = typed;
        deliver();
        EXPECT_EQ(recorded(), logon + message + recipient + type + typed + "\n" + logoff);
    }
}

TEST_F(SimpleMapiTest, EveryRefusalHasItsOwnWordsAndNumber) {
    for (const auto& [code, words] : {std::pair(7, "MAPI Error: Unknown error (error 7)"),
                                      {28, "MAPI Error: An attachment is too large (error 28)"},
                                      {29, "MAPI Error: Unknown error (error 29)"}}) {
        answer(L"TURNPOST_SEND_CODE", code);
        EXPECT_EQ(deliver(), words);
    }
    recorded();
    answer(L"TURNPOST_LOGON_CODE", 3);
    deliver();
    EXPECT_EQ(recorded(), logon);
    EXPECT_EQ(windows.boxes.back(), "MAPI Error: The mail program refused the logon (error 3)");
}

TEST_F(SimpleMapiTest, WithoutAMailClientNoMailSystemIsFound) {
    // MAPI32.DLL looks for the recording mail client once, when it is loaded.
    deliver();
    recorded();
    HKEY person = nullptr;
    HKEY machine = nullptr;
    RegCreateKeyW(HKEY_CURRENT_USER, L"Nimbus Turnpost Test", &person);
    RegCreateKeyW(person, L"machine", &machine);
    RegOverridePredefKey(HKEY_LOCAL_MACHINE, machine);
    RegOverridePredefKey(HKEY_CURRENT_USER, person);
    for (const std::wstring name : {L"", L"Mail"}) {
        RegSetKeyValueW(person, L"Software\\Clients\\Mail", nullptr, REG_SZ, name.c_str(),
                        static_cast<DWORD>((name.size() + 1) * sizeof(wchar_t)));
        deliver();
        EXPECT_EQ(recorded().substr(0, logon.size()), name.empty() ? "" : logon);
    }
    RegOverridePredefKey(HKEY_LOCAL_MACHINE, nullptr);
    RegOverridePredefKey(HKEY_CURRENT_USER, nullptr);
    RegDeleteTreeW(person, nullptr);
    EXPECT_EQ(windows.boxes, std::vector<std::string>{"No mail system found"});
    SimpleMapiSession old(std::make_shared<SimpleMapi>(L"KERNEL32.DLL"));
    old.SignOn();
    EXPECT_EQ(std::to_string(old.SessionID()) + (old.signOnRefusal() ? "refused" : ""), "0");
}

} // namespace turnpost
