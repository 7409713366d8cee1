#include "fakes/TempFolder.h"
#include "mapi/MailSystem.h"
#include "mapi/SimpleMapiMessages.h"
#include "mapi/SimpleMapiSession.h"
#include "mapi/windows/MailClientName.h"
#include "platform/CodePage.h"
#include "platform/Folders.h"

#include <gtest/gtest.h>
#include <set>

namespace turnpost {

namespace {

// The library lies beside the test program, or in the system's folder.
MailSystem mailSystem(const std::string& library) {
    const std::string own = joinPath(programFolder(), library);
    const auto mapi = std::make_shared<SimpleMapi>(toUtf16(findFile(own).value_or(library)));
    return {std::make_unique<SimpleMapiSession>(mapi), std::make_unique<SimpleMapiMessages>(mapi)};
}

const std::string logon = "logon window=0 profile= password= flags=0\n";
const std::string logoff = "logoff session=12345678901234\n";

} // namespace

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

    static void compose(MailMessages& messages, const std::string& address = "one@example.org") {
        messages.Compose();
        messages.MsgIndex(-1);
        messages.MsgSubject("Year 2410");
        messages.MsgNoteText("Your turn");
        messages.RecipIndex(0);
        messages.RecipDisplayName("One");
        messages.RecipAddress(address);
        messages.RecipType(mainRecipient);
    }

    TempFolder temp;
    Settings settings;
    MailSystem system = makeMailSystem(settings);
};

TEST_F(SimpleMapiTest, SignsOnWithoutAnyDialogAndOffWithTheSameSession) {
    signOn();
    system.MAPISession1->SignOff();
    EXPECT_EQ(recorded(), logoff);
    EXPECT_EQ(system.MAPISession1->SessionID(), 0);
    system.MAPISession1->SignOff();
    EXPECT_EQ(recorded(), "") << "signed off twice";
}

TEST_F(SimpleMapiTest, EachMemberOfTheSessionReachesTheLogon) {
    system.MAPISession1->UserName("Gr\u00FCn");
    system.MAPISession1->Password("secret");
    const auto expectFlags = [this](bool session, bool dialog, bool download, int flags) {
        system.MAPISession1->NewSession(session);
        system.MAPISession1->LogonUI(dialog);
        system.MAPISession1->DownLoadMail(download);
        system.MAPISession1->SignOn();
        EXPECT_EQ(recorded(), "logon window=0 profile=Gr\xFCn password=secret flags=" +
                                  std::to_string(flags) + "\n");
        system.MAPISession1->SignOff();
        EXPECT_EQ(recorded(), logoff);
    };
    expectFlags(false, false, false, 0);
    expectFlags(true, false, false, 0x2);
    expectFlags(false, true, false, 0x1);
    expectFlags(false, false, true, 0x1000);
}

TEST_F(SimpleMapiTest, AnOpenSessionIsNeverForgotten) {
    signOn();
    system.MAPISession1->SignOn();
    EXPECT_EQ(recorded(), logoff + logon);
    system.MAPISession1.reset();
    EXPECT_EQ(recorded(), logoff);
}

TEST_F(SimpleMapiTest, EveryPartOfAMessageArrivesAsItWasGiven) {
    signOn();
    MailMessages& messages = *system.MAPIMessages1;
    compose(messages, " j\u00F6rg@example.org ");
    messages.MsgSubject("Year 2410 \u2013 \u0416");
    messages.MsgNoteText("Gr\u00FC\u00DFe \U0001F600\r\n.\r\n\r\n  ");
    messages.RecipDisplayName(" J\u00F6rg, \"the host\" ");
    messages.RecipIndex(1);
    messages.RecipDisplayName("\u0416");
    messages.RecipAddress("two@example.org");
    messages.RecipType(copyRecipient);
    messages.AttachmentIndex(0);
    messages.AttachmentPosition(0);
    messages.AttachmentType(dataFile);
    messages.AttachmentPathName("C:\\Stars/Cup/\u0416\u00FC.M1");
    messages.AttachmentIndex(1);
    messages.AttachmentPosition(1);
    messages.AttachmentType(dataFile);
    messages.AttachmentPathName("C:\\Stars\\Cup\\CUP.XY");
    EXPECT_EQ(messages.Send(), std::nullopt);
    EXPECT_EQ(
        recorded(),
        "sendW session=12345678901234 flags=0 type=NULL messageflags=0\n"
        "subject=Year 2410 \u2013 \u0416\n"
        "text=Gr\u00FC\u00DFe \U0001F600<CR><LF>.<CR><LF><CR><LF>  \n"
        "recipient class=1 name= J\u00F6rg, \"the host\"  address=SMTP: j\u00F6rg@example.org \n"
        "recipient class=2 name=\u0416 address=SMTP:two@example.org\n"
        "file position=0 flags=0 path=C:\\Stars\\Cup\\\u0416\u00FC.M1 name=NULL\n"
        "file position=1 flags=0 path=C:\\Stars\\Cup\\CUP.XY name=NULL\n");
}

TEST_F(SimpleMapiTest, NothingOfAMessageReachesTheNext) {
    signOn();
    MailMessages& messages = *system.MAPIMessages1;
    compose(messages);
    messages.RecipIndex(1);
    messages.AttachmentIndex(0);
    messages.Send();
    recorded();
    compose(messages);
    messages.Send();
    EXPECT_EQ(recorded(), "sendW session=12345678901234 flags=0 type=NULL messageflags=0\n"
                          "subject=Year 2410\ntext=Your turn\n"
                          "recipient class=1 name=One address=SMTP:one@example.org\n");
}

TEST_F(SimpleMapiTest, AnAddressGetsATypeUnlessItNamesOne) {
    signOn();
    const auto expectAddress = [this](const std::string& typed, const std::string& sent) {
        compose(*system.MAPIMessages1, typed);
        system.MAPIMessages1->Send();
        EXPECT_TRUE(recorded().ends_with(" address=" + sent + "\n")) << typed;
    };
    expectAddress("SMTP:one@example.org", "SMTP:one@example.org");
    expectAddress("fax:+1 234", "fax:+1 234");
    expectAddress("one@[IPv6:::1]", "SMTP:one@[IPv6:::1]");
    expectAddress("\"a:b\"@example.org", "SMTP:\"a:b\"@example.org");
    expectAddress(":one", "SMTP::one");
}

TEST_F(SimpleMapiTest, EveryRefusalHasWordsAndItsNumber) {
    signOn();
    compose(*system.MAPIMessages1);
    std::set<std::string> words;
    for (int code = 1; code <= 30; ++code) {
        answer(L"TURNPOST_SEND_CODE", code);
        const std::string failure = system.MAPIMessages1->Send().value_or("");
        EXPECT_NE(recorded(), "");
        const std::string number = " (error " + std::to_string(code) + ")";
        EXPECT_TRUE(failure.ends_with(number)) << failure;
        words.insert(failure.substr(0, failure.size() - number.size()));
    }
    EXPECT_EQ(words.size(), 28U) << "27 codes have a meaning, 7, 29 and 30 have none";
    answer(L"TURNPOST_SEND_CODE", 11);
    EXPECT_EQ(system.MAPIMessages1->Send(), "An attachment was not found (error 11)");
    answer(L"TURNPOST_SEND_CODE", 28);
    EXPECT_EQ(system.MAPIMessages1->Send(), "An attachment is too large (error 28)");
}

TEST_F(SimpleMapiTest, ARefusedLogonIsNoSession) {
    answer(L"TURNPOST_LOGON_CODE", 3);
    system.MAPISession1->SignOn();
    EXPECT_EQ(recorded(), logon);
    EXPECT_EQ(system.MAPISession1->SessionID(), 0);
}

TEST_F(SimpleMapiTest, WithoutASessionNothingIsSent) {
    signOn();
    system.MAPISession1->SignOff();
    EXPECT_EQ(recorded(), logoff);
    compose(*system.MAPIMessages1);
    EXPECT_EQ(system.MAPIMessages1->Send(), "The mail session is no longer open (error 19)");
    EXPECT_EQ(recorded(), "");
}

TEST_F(SimpleMapiTest, OnlyAMailClientThatSomebodyHasChosenIsAsked) {
    // MAPI32.DLL looks for the recording mail client once, when it is loaded.
    signOn();
    const auto expectSession = [this](const wchar_t* ofMachine, const wchar_t* ofPerson, bool any) {
        system.MAPISession1->SignOff();
        recorded();
        const MailClientName machine(HKEY_LOCAL_MACHINE, ofMachine);
        const MailClientName person(HKEY_CURRENT_USER, ofPerson);
        system.MAPISession1->SignOn();
        EXPECT_EQ(system.MAPISession1->SessionID() != 0, any);
        EXPECT_EQ(recorded(), any ? logon : "");
    };
    expectSession(nullptr, nullptr, false);
    expectSession(L"", L"", false);
    expectSession(L"Mail", nullptr, true);
    expectSession(nullptr, L"Mail", true);
}

TEST_F(SimpleMapiTest, WithoutTheLibraryOrItsCallsThereIsNoSession) {
    for (const char* library : {"NOMAPI32.DLL", "KERNEL32.DLL", "WithoutSending.dll"}) {
        const MailSystem none = mailSystem(library);
        none.MAPISession1->SignOn();
        EXPECT_EQ(none.MAPISession1->SessionID(), 0);
        EXPECT_EQ(recorded(), "");
        compose(*none.MAPIMessages1);
        EXPECT_NE(none.MAPIMessages1->Send(), std::nullopt);
    }
}

TEST_F(SimpleMapiTest, WithoutTheCallForUtf16TheSystemsCodePageIsSent) {
    system = mailSystem("WithoutUtf16.dll");
    signOn();
    compose(*system.MAPIMessages1, "j\u00F6rg@example.org");
    system.MAPIMessages1->MsgSubject("\u20AC \u0416");
    system.MAPIMessages1->AttachmentIndex(0);
    system.MAPIMessages1->AttachmentPathName("C:/Gr\u00FCn.M1");
    EXPECT_EQ(system.MAPIMessages1->Send(), std::nullopt);
    EXPECT_EQ(recorded(), "send session=12345678901234 flags=0 type=NULL messageflags=0\n"
                          "subject=\x80 ?\ntext=Your turn\n"
                          "recipient class=1 name=One address=SMTP:j\xF6rg@example.org\n"
                          "file position=0 flags=0 path=C:\\Gr\xFCn.M1 name=NULL\n");
}

} // namespace turnpost
