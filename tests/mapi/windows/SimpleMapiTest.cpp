#include "fakes/TempFolder.h"
#include "mapi/MailSystem.h"
#include "mapi/SimpleMapiMessages.h"
#include "mapi/SimpleMapiSession.h"
#include "mapi/windows/MailClientName.h"
#include "platform/CodePage.h"
#include "platform/Folders.h"

#include <gtest/gtest.h>

namespace turnpost {

// All tests but the last two go through the system's own MAPI32.DLL, behind which the recording
// mail client has to be registered.
class SimpleMapiTest : public testing::Test {
  protected:
    SimpleMapiTest() {
        SetEnvironmentVariableW(L"TURNPOST_RECORD",
                                toNativePath(temp.path("record")).wstring().c_str());
        answer(L"TURNPOST_LOGON_CODE", 0);
        answer(L"TURNPOST_SEND_CODE", 0);
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

    /// What the mail client was asked since the last time.
    std::string recorded() const {
        std::string lines = temp.read("record");
        std::filesystem::remove(toNativePath(temp.path("record")));
        return lines;
    }

    void signOn() const {
        system.MAPISession1->SignOn();
        system.MAPIMessages1->SessionID(system.MAPISession1->SessionID());
        ASSERT_NE(system.MAPISession1->SessionID(), 0);
        ASSERT_EQ(recorded(), logon);
    }

    MailMessages& compose(const std::string& address) const {
        MailMessages& messages = *system.MAPIMessages1;
        messages.Compose();
        messages.MsgIndex(-1);
        messages.MsgSubject("\u20AC \u0416");
        messages.MsgNoteText("Gr\u00FC\u00DFe\r\n.\r\n\r\n  ");
        messages.RecipIndex(0);
        messages.RecipDisplayName(" One, \"the host\" ");
        messages.RecipAddress(address);
        messages.RecipType(mainRecipient);
        return messages;
    }

    static void attach(MailMessages& messages, int index, const std::string& path) {
        messages.AttachmentIndex(index);
        messages.AttachmentPosition(index);
        messages.AttachmentType(dataFile);
        messages.AttachmentPathName(path);
    }

    const std::string logon = "logon window=0 profile= password= flags=0\n";
    const std::string logoff = "logoff session=12345678901234\n";
    const std::string utf16Message =
        "sendW session=12345678901234 flags=0 type=NULL messageflags=0\n"
        "subject=\u20AC \u0416\ntext=Gr\u00FC\u00DFe\r\n.\r\n\r\n  \n"
        "recipient class=1 name= One, \"the host\"  address=";
    TempFolder temp;
    Settings settings;
    MailSystem system = makeMailSystem(settings);
};

TEST_F(SimpleMapiTest, EachMemberOfTheSessionReachesTheLogon) {
    system.MAPISession1->UserName("Gr\u00FCn");
    system.MAPISession1->Password("secret");
    for (const int flags : {0, 0x2, 0x1, 0x1000}) {
        system.MAPISession1->NewSession(flags == 0x2);
        system.MAPISession1->LogonUI(flags == 0x1);
        system.MAPISession1->DownLoadMail(flags == 0x1000);
        system.MAPISession1->SignOn();
        system.MAPISession1->SignOff();
        EXPECT_EQ(recorded(), "logon window=0 profile=Gr\xFCn password=secret flags=" +
                                  std::to_string(flags) + "\n" + logoff);
    }
}

TEST_F(SimpleMapiTest, AnOpenSessionIsNeverForgottenAndAClosedOneNeverUsed) {
    signOn();
    system.MAPISession1->SignOn();
    EXPECT_EQ(recorded(), logoff + logon);
    system.MAPISession1->SignOff();
    EXPECT_EQ(recorded(), logoff);
    EXPECT_EQ(system.MAPISession1->SessionID(), 0);
    system.MAPISession1->SignOff();
    EXPECT_EQ(compose("one").Send(), "The mail session is no longer open (error 19)");
    EXPECT_EQ(recorded(), "");
    signOn();
    system.MAPISession1.reset();
    EXPECT_EQ(recorded(), logoff);
    system = makeMailSystem(settings);
    answer(L"TURNPOST_LOGON_CODE", 3);
    system.MAPISession1->SignOn();
    EXPECT_EQ(system.MAPISession1->SessionID(), 0);
    EXPECT_EQ(recorded(), logon);
}

TEST_F(SimpleMapiTest, EveryPartOfAMessageArrivesAsItWasGivenAndNothingOfItInTheNext) {
    signOn();
    MailMessages& messages = compose(" j\u00F6rg@example.org ");
    messages.RecipIndex(1);
    messages.RecipDisplayName("\u0416\U0001F600");
    messages.RecipAddress("two@example.org");
    messages.RecipType(copyRecipient);
    attach(messages, 0, "C:\\Stars/Cup/\u0416\u00FC.M1");
    attach(messages, 1, "C:\\Stars\\Cup\\CUP.XY");
    EXPECT_EQ(messages.Send(), std::nullopt);
    EXPECT_EQ(recorded(),
              utf16Message +
                  "SMTP: j\u00F6rg@example.org \n"
                  "recipient class=2 name=\u0416\U0001F600 address=SMTP:two@example.org\n"
                  "file position=0 flags=0 path=C:\\Stars\\Cup\\\u0416\u00FC.M1 name=NULL\n"
                  "file position=1 flags=0 path=C:\\Stars\\Cup\\CUP.XY name=NULL\n");
    for (const auto& [typed, type] : {std::pair("SMTP:one@example.org", ""),
                                      {"fax:+1 234", ""},
                                      {"one@[IPv6:::1]", "SMTP:"},
                                      {"\"a:b\"@example.org", "SMTP:"},
                                      {":one", "SMTP:"}}) {
        compose(typed).Send();
        EXPECT_EQ(recorded(), utf16Message + type + typed + "\n");
    }
}

TEST_F(SimpleMapiTest, EveryRefusalHasItsOwnWordsAndItsNumber) {
    signOn();
    for (const auto& [code, words] : {std::pair(7, "Unknown error (error 7)"),
                                      {11, "An attachment was not found (error 11)"},
                                      {28, "An attachment is too large (error 28)"},
                                      {29, "Unknown error (error 29)"}}) {
        answer(L"TURNPOST_SEND_CODE", code);
        EXPECT_EQ(compose("one").Send(), words);
    }
}

TEST_F(SimpleMapiTest, OnlyAMailClientThatSomebodyHasChosenIsAsked) {
    // MAPI32.DLL looks for the recording mail client once, when it is loaded.
    signOn();
    const auto answerWith = [this](const wchar_t* ofMachine, const wchar_t* ofPerson) {
        system.MAPISession1->SignOff();
        recorded();
        const MailClientName machine(HKEY_LOCAL_MACHINE, ofMachine);
        const MailClientName person(HKEY_CURRENT_USER, ofPerson);
        system.MAPISession1->SignOn();
        EXPECT_EQ(system.MAPISession1->SessionID() == 0, temp.names().empty());
        return recorded();
    };
    EXPECT_EQ(answerWith(nullptr, nullptr), "");
    EXPECT_EQ(answerWith(L"", L""), "");
    EXPECT_EQ(answerWith(L"Mail", nullptr), logon);
    EXPECT_EQ(answerWith(nullptr, L"Mail"), logon);
}

TEST_F(SimpleMapiTest, WithoutTheLibraryOrItsCallsThereIsNoSession) {
    for (const char* library : {"NOMAPI32.DLL", "KERNEL32.DLL", "WithoutSending.dll"}) {
        use(library);
        system.MAPISession1->SignOn();
        EXPECT_EQ(system.MAPISession1->SessionID(), 0);
        EXPECT_NE(compose("one").Send(), std::nullopt);
        EXPECT_EQ(recorded(), "");
    }
}

TEST_F(SimpleMapiTest, WithoutTheCallForUtf16TheSystemsCodePageIsSent) {
    use("WithoutUtf16.dll");
    signOn();
    attach(compose("j\u00F6rg@example.org"), 0, "C:/Gr\u00FCn.M1");
    EXPECT_EQ(system.MAPIMessages1->Send(), std::nullopt);
    EXPECT_EQ(recorded(),
              "send session=12345678901234 flags=0 type=NULL messageflags=0\n"
              "subject=\x80 ?\ntext=Gr\xFC\337e\r\n.\r\n\r\n  \n"
              "recipient class=1 name= One, \"the host\"  address=SMTP:j\xF6rg@example.org\n"
              "file position=0 flags=0 path=C:\\Gr\xFCn.M1 name=NULL\n");
}

} // namespace turnpost
