#include "mapi/SendmailFixture.h"

#include <cstdlib>

namespace turnpost {

class Sendmail : public SendmailFixture {
  protected:
    using Cases = std::vector<std::pair<std::string, std::string>>;
};

TEST_F(Sendmail, TheSessionIsTheFirstExecutableFileOfThatName) {
    session.SignOn();
    EXPECT_EQ(session.SessionID(), 0) << "there is none";
    temp.makeFolder("folder/sendmail");
    temp.makeFolder("locked");
    temp.write("locked/sendmail", "not executable");
    installRecorder();
    SendmailSession other({temp.path("folder"), temp.path("locked"), temp.path("bin")});
    other.SignOn();
    EXPECT_EQ(other.program(), temp.path("bin/sendmail"));
}

TEST_F(Sendmail, TheSystemsFoldersComeFirstAndTheCurrentFolderNever) {
    const char* path = std::getenv("PATH");
    const std::string before = path == nullptr ? "" : path;
    setenv("PATH", "/opt/bin::bin:./x:/home/bin", 1);
    EXPECT_EQ(sendmailFolders(),
              std::vector<std::string>({"/usr/sbin", "/usr/lib", "/opt/bin", "/home/bin"}));
    setenv("PATH", before.c_str(), 1);
}

TEST_F(Sendmail, DomainsAreArgumentsInAsciiAndASenderThatLooksLikeAnOptionIsNone) {
    installRecorder();
    for (const auto& [sender, words] : Cases{{" host@example.org", "-f\nhost@example.org\n"},
                                             {"host@bücher.de", "-f\nhost@xn--bcher-kva.de\n"},
                                             {" ", ""},
                                             {"-oQ/tmp", ""},
                                             {" -bd", ""}}) {
        settings.HostEmail = sender;
        compose();
        addRecipient(1, " second@例え.jp", copyRecipient);
        EXPECT_EQ(mail.Send(), std::nullopt) << sender;
        EXPECT_EQ(temp.read("arguments"),
                  "-i\n" + words + "--\nzoe@example.org\nsecond@xn--r8jz45g.jp\n");
    }
}

TEST_F(Sendmail, TwoPeopleInOneAddressOrAFileThatIsGoneReachNobody) {
    installRecorder();
    compose({"GAME.M1"});
    EXPECT_EQ(mail.Send(), "Cannot read " + temp.path("GAME.M1") + "\r\nNo such file or directory");
    compose();
    addRecipient(1, "second@example.org, third@example.org", copyRecipient);
    EXPECT_EQ(mail.Send(), "This is not one e-mail address: second@example.org, third@example.org");
    settings.HostEmail = "host@example.org\nBcc: eve@example.org";
    compose();
    EXPECT_EQ(mail.Send(),
              "Your own address is not one e-mail address: host@example.org\nBcc: eve@example.org");
    EXPECT_EQ(temp.names(), std::set<std::string>({"bin"}));
}

TEST_F(Sendmail, AFailureSpeaksInTheProgramsWordsElseByHowItEnded) {
    // More than a pipe holds; most of these programs leave it unread.
    temp.write("GAME.M1", std::string(1 << 20, 'x'));
    for (const auto& [commands, words] :
         Cases{{"cat >/dev/null; printf '0\\n 1 \\t\\r\\n\\n  \\n2\\n3\\n4\\n5\\n' >&2; exit 1",
                " 1\r\n2\r\n3\r\n4\r\n5"},
               {"echo ' ' >&2; echo spoken; exit 1", "spoken"},
               {"exec 0<&-; printf 'kein Empf\\344nger' >&2; exit 67", "kein Empfänger"},
               {"exit 75", "Temporary failure, please try again later"},
               {"exit 63", "exit status 63"},
               {"exit 79", "exit status 79"},
               {"echo spoken; echo words >&2; kill -KILL $$",
                "words\r\nThe mail program was ended by signal 9: Killed"},
               {"echo a warning >&2; cat >message", "taken"}}) {
        install(commands);
        compose({"GAME.M1"});
        EXPECT_EQ(mail.Send().value_or("taken"), words) << commands;
    }
    std::filesystem::remove(temp.path("bin/sendmail"));
    EXPECT_EQ(mail.Send(),
              "Cannot start " + temp.path("bin/sendmail") + "\r\nNo such file or directory");
    session.SignOff();
    EXPECT_EQ(mail.Send(), "No mail system found");
}

TEST_F(Sendmail, AProgramThatHangsIsEndedWhenTheMessageHasHadItsTime) {
    install("echo words >&2; exec sleep 60\n");
    SendmailMessages impatient(settings, session, std::chrono::milliseconds(300));
    session.SignOn();
    impatient.SessionID(session.SessionID());
    impatient.MsgNoteText(std::string(10000, 'x'));
    EXPECT_EQ(impatient.Send(), "words\r\nno answer within 2 seconds");
}

} // namespace turnpost
