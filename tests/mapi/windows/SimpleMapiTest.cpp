#include "mapi/DeliveryFixture.h"
#include "mapi/MailSystem.h"
#include "mapi/SimpleMapiMessages.h"
#include "mapi/SimpleMapiSession.h"
#include "mapi/windows/MailClientName.h"
#include "platform/CodePage.h"
#include "platform/Folders.h"

namespace turnpost {

// All tests but the last two go through the system's own MAPI32.DLL, behind which the recording
// mail client has to be registered.
class SimpleMapiTest : public DeliveryFixture {
  protected:
    SimpleMapiTest() {
        SetEnvironmentVariableW(L"TURNPOST_RECORD",
                                toNativePath(temp.path("record")).wstring().c_str());
        answer(L"TURNPOST_LOGON_CODE", 0);
        answer(L"TURNPOST_SEND_CODE", 0);
        player = {1, " One, \"the host\" ", "one", "", "", true};
        text = {"\u20AC \u0416", "Gr\u00FC\u00DFe\r\n.\r\n"};
    }

    static void answer(const wchar_t* call, int code) {
        SetEnvironmentVariableW(call, std::to_wstring(code).c_str());
    }

    // The library lies beside the test program, or in the system's folder.
    void use(const std::string& library) {
        const std::string own = joinPath(programFolder(), library);
        const auto mapi = std::make_shared<SimpleMapi>(toUtf16(findFile(own).value_or(library)));
        system = {std::make_unique<SimpleMapiSession>(mapi),
                  std::make_unique<SimpleMapiMessages>(mapi)};
    }

    MailSession& session() const { return *system.MAPISession1; }
    std::string deliver() { return DeliveryFixture::deliver(session(), *system.MAPIMessages1); }

    /// What the mail client was asked since the last time.
    std::string recorded() const {
        std::string lines = temp.read("record");
        std::filesystem::remove(toNativePath(temp.path("record")));
        return lines;
    }

    /// A path of the game's folder as a mail client gets it.
    std::string recordedPath(const std::string& name) const {
        std::string path = temp.path(name);
        std::replace(path.begin(), path.end(), '/', '\\');
        return path;
    }

    const std::string logon = "logon window=0 profile= password= flags=0\n";
    const std::string logoff = "logoff session=12345678901234\n";
    const std::string utf16Message =
        "sendW session=12345678901234 flags=0 type=NULL messageflags=0\n"
        "subject=\u20AC \u0416\ntext=Gr\u00FC\u00DFe\r\n.\r\n";
    const std::string recipient = "\nrecipient class=1 name= One, \"the host\"  address=";
    Settings settings;
    MailSystem system = makeMailSystem(settings);
};

TEST_F(SimpleMapiTest, EachMemberOfTheSessionReachesTheLogon) {
    session().UserName("Gr\u00FCn");
    session().Password("secret");
    for (const int flags : {0, 0x2, 0x1, 0x1000}) {
        session().NewSession(flags == 0x2);
        session().LogonUI(flags == 0x1);
        session().DownLoadMail(flags == 0x1000);
        session().SignOn();
        session().SignOff();
        EXPECT_EQ(recorded(), "logon window=0 profile=Gr\xFCn password=secret flags=" +
                                  std::to_string(flags) + "\n" + logoff);
    }
}

TEST_F(SimpleMapiTest, AnOpenSessionIsNeverForgottenAndAClosedOneNeverUsed) {
    session().SignOn();
    session().SignOn();
    EXPECT_EQ(recorded(), logon + logoff + logon);
    system.MAPIMessages1->SessionID(session().SessionID());
    session().SignOff();
    session().SignOff();
    EXPECT_EQ(system.MAPIMessages1->Send(), "The mail session is no longer open (error 19)");
    EXPECT_EQ(recorded(), logoff);
    session().SignOn();
    system.MAPISession1.reset();
    EXPECT_EQ(recorded(), logon + logoff);
    system = makeMailSystem(settings);
    answer(L"TURNPOST_LOGON_CODE", 3);
    deliver();
    EXPECT_EQ(recorded(), logon);
    EXPECT_EQ(display.boxes, Texts{"No mail system found"});
}

TEST_F(SimpleMapiTest, EveryPartOfAMessageArrivesAsItWasGivenAndNothingOfItInTheNext) {
    player.PlayerEmail = " j\u00F6rg@example.org ";
    player.AltEmail = "two@example.org";
    player.GameFile = "\u0416\u00FC.M2";
    attachments = {1, 0, {temp.path("CUP.XY"), "", ""}};
    temp.write(player.GameFile, "x");
    temp.write("CUP.XY", "x");
    EXPECT_EQ(deliver(), "Email Generated OK");
    EXPECT_EQ(recorded(), logon + utf16Message + "\r\n  " + recipient +
                              "SMTP: j\u00F6rg@example.org \n"
                              "recipient class=2 name= One, \"the host\"  "
                              "address=SMTP:two@example.org\n"
                              "file position=0 flags=0 path=" +
                              recordedPath(player.GameFile) +
                              " name=NULL\nfile position=1 flags=0 path=" + recordedPath("CUP.XY") +
                              " name=NULL\n" + logoff);
    attachments = {0, 0, {}};
    player.AltEmail = "";
    for (const auto& [typed, type] : {std::pair("SMTP:one@example.org", ""),
                                      {"fax:+1 234", ""},
                                      {"one@[IPv6:::1]", "SMTP:"},
                                      {"\"a:b\"@example.org", "SMTP:"},
                                      {":one", "SMTP:"}}) {
        player.PlayerEmail = typed;
        deliver();
        EXPECT_EQ(recorded(), logon + utf16Message + recipient + type + typed + "\n" + logoff);
    }
}

TEST_F(SimpleMapiTest, EveryRefusalHasItsOwnWordsAndItsNumber) {
    for (const auto& [code, words] : {std::pair(7, "MAPI Error: Unknown error (error 7)"),
                                      {11, "MAPI Error: An attachment was not found (error 11)"},
                                      {28, "MAPI Error: An attachment is too large (error 28)"},
                                      {29, "MAPI Error: Unknown error (error 29)"}}) {
        answer(L"TURNPOST_SEND_CODE", code);
        EXPECT_EQ(deliver(), words);
    }
}

TEST_F(SimpleMapiTest, OnlyAMailClientThatSomebodyHasChosenIsAsked) {
    // MAPI32.DLL looks for the recording mail client once, when it is loaded.
    session().SignOn();
    const auto answerWith = [this](const wchar_t* ofMachine, const wchar_t* ofPerson) {
        session().SignOff();
        recorded();
        const MailClientName machine(HKEY_LOCAL_MACHINE, ofMachine);
        const MailClientName person(HKEY_CURRENT_USER, ofPerson);
        session().SignOn();
        return recorded();
    };
    EXPECT_EQ(answerWith(nullptr, nullptr) + answerWith(L"", L""), "");
    EXPECT_EQ(answerWith(L"Mail", nullptr), logon);
    EXPECT_EQ(answerWith(nullptr, L"Mail"), logon);
}

TEST_F(SimpleMapiTest, WithoutTheLibraryOrItsCallsThereIsNoSession) {
    for (const char* library : {"NOMAPI32.DLL", "KERNEL32.DLL", "WithoutSending.dll"}) {
        use(library);
        deliver();
        EXPECT_EQ(display.boxes.back(), "No mail system found");
        EXPECT_NE(system.MAPIMessages1->Send(), std::nullopt);
        EXPECT_EQ(recorded(), "");
    }
}

TEST_F(SimpleMapiTest, WithoutTheCallForUtf16TheSystemsCodePageIsSent) {
    use("WithoutUtf16.dll");
    player.PlayerEmail = "j\u00F6rg@example.org";
    attachments.ExtraAttachments[0] = temp.path("Gr\u00FCn.M1");
    temp.write("Gr\u00FCn.M1", "x");
    EXPECT_EQ(deliver(), "Email Generated OK");
    EXPECT_EQ(recorded(), logon +
                              "send session=12345678901234 flags=0 type=NULL messageflags=0\n"
                              "subject=\x80 ?\ntext=Gr\xFC\337e\r\n.\r\n\r\n " +
                              recipient +
                              "SMTP:j\xF6rg@example.org\nfile position=0 flags=0 path=" +
                              recordedPath("Gr\xFCn.M1") + " name=NULL\n" + logoff);
}

} // namespace turnpost
