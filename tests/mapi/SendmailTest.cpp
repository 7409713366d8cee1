#include "mapi/ParsedMail.h"
#include "mapi/SendmailFixture.h"

#include <cstdlib>

namespace turnpost {

using test::ParsedMail;

class Sendmail : public SendmailFixture {
  protected:
    std::string failure() {
        compose();
        return mail.Send().value_or("taken");
    }
};

TEST_F(Sendmail, TheSessionIsTheFirstExecutableFileOfThatName) {
    EXPECT_EQ(session.SessionID(), 0);
    session.SignOn();
    EXPECT_EQ(session.SessionID(), 0) << "there is none";
    temp.makeFolder("folder/sendmail");
    temp.makeFolder("locked");
    temp.write("locked/sendmail", "not executable");
    installRecorder();
    SendmailSession other({temp.path("folder"), temp.path("locked"), temp.path("bin")});
    other.SignOn();
    EXPECT_NE(other.SessionID(), 0);
    EXPECT_EQ(other.program(), temp.path("bin/sendmail"));
    other.SignOff();
    EXPECT_EQ(other.SessionID(), 0);
}

TEST_F(Sendmail, TheSystemsFoldersComeFirstAndTheCurrentFolderNever) {
    const char* old = std::getenv("PATH");
    const std::string before = old == nullptr ? "" : old;
    setenv("PATH", "/opt/bin::bin:./x:/home/bin", 1);
    EXPECT_EQ(sendmailFolders(),
              std::vector<std::string>({"/usr/sbin", "/usr/lib", "/opt/bin", "/home/bin"}));
    setenv("PATH", before.c_str(), 1);
}

TEST_F(Sendmail, HandsOverSenderRecipientsAndMessage) {
    installRecorder();
    temp.write("GAME.M1", "turn");
    compose({"GAME.M1"});
    EXPECT_EQ(mail.Send(), std::nullopt);
    EXPECT_EQ(temp.read("arguments"),
              "-i\n-f\nhost@example.org\n--\nzoe@example.org\nsecond@example.org\n");
    const ParsedMail parsed(temp.read("message"));
    EXPECT_EQ(parsed["from"], "Hänsel Host\nhost@example.org\n");
    EXPECT_EQ(parsed["to"], "Zoë Zimmer\nzoe@example.org\n");
    EXPECT_EQ(parsed["cc"], "Zoë Zimmer\nsecond@example.org\n");
    EXPECT_EQ(parsed["subject"], "Turn 24");
    EXPECT_EQ(parsed["text"], "Hello Zoë\n\n ");
    EXPECT_EQ(parsed["0.name"], "GAME.M1");
    EXPECT_EQ(parsed["0.bytes"], "turn");
}

TEST_F(Sendmail, ASenderThatIsEmptyOrLooksLikeAnOptionIsNoArgument) {
    installRecorder();
    for (const char* sender : {"", " ", "-oQ/tmp", " -bd"}) {
        settings.HostEmail = sender;
        compose();
        EXPECT_EQ(mail.Send(), std::nullopt) << sender;
        EXPECT_EQ(temp.read("arguments"), "-i\n--\nzoe@example.org\nsecond@example.org\n");
    }
}

TEST_F(Sendmail, AnAddressThatNamesTwoPeopleReachesNobody) {
    installRecorder();
    compose();
    addRecipient(1, "second@example.org, third@example.org", copyRecipient);
    EXPECT_EQ(mail.Send(), "This is not one e-mail address: second@example.org, third@example.org");
    settings.HostEmail = "host@example.org\nBcc: eve@example.org";
    compose();
    EXPECT_NE(mail.Send(), std::nullopt);
    EXPECT_EQ(temp.names(), std::set<std::string>({"bin"}));
}

TEST_F(Sendmail, AFileThatIsGoneByThenIsAFailureWithPathAndReason) {
    installRecorder();
    temp.write("GAME.M1", "turn");
    compose({"GAME.M1"});
    std::filesystem::remove(temp.path("GAME.M1"));
    EXPECT_EQ(mail.Send(), "Cannot read " + temp.path("GAME.M1") + "\r\nNo such file or directory");
    EXPECT_EQ(temp.names(), std::set<std::string>({"bin"}));
}

TEST_F(Sendmail, ARefusalSpeaksInTheMailSystemsOwnWords) {
    install(
        "cat >/dev/null\nprintf '\\n one \\t\\r\\n\\n  \\ntwo\\nthree\\nfour\\n' >&2\nexit 1\n");
    EXPECT_EQ(failure(), " one\r\ntwo\r\nthree");
    install("printf 'kein Empf\\344nger' >&2; exit 67\n");
    EXPECT_EQ(failure(), "kein Empfänger");
    install("echo a warning >&2\ncat >message\n");
    EXPECT_EQ(failure(), "taken");
}

TEST_F(Sendmail, ASilentFailureSpeaksByHowItEnded) {
    install("exit 75\n");
    EXPECT_EQ(failure(), "Temporary failure, please try again later");
    install("exit 63\n");
    EXPECT_EQ(failure(), "exit status 63");
    install("exit 79\n");
    EXPECT_EQ(failure(), "exit status 79");
    install("kill -KILL $$\n");
    EXPECT_EQ(failure(), "The mail program was ended by signal 9: Killed");
}

TEST_F(Sendmail, AProgramThatWentAwayAfterTheSignOnIsAFailure) {
    installRecorder();
    compose();
    std::filesystem::remove(temp.path("bin/sendmail"));
    EXPECT_EQ(mail.Send(),
              "Cannot start " + temp.path("bin/sendmail") + "\r\nNo such file or directory");
    session.SignOff();
    EXPECT_EQ(mail.Send(), "No mail system found");
}

TEST_F(Sendmail, AProgramThatHangsIsEndedAndTheNextMessageFollows) {
    install("exec sleep 60\n");
    SendmailMessages impatient(settings, session, std::chrono::milliseconds(700));
    session.SignOn();
    impatient.SessionID(session.SessionID());
    impatient.Compose();
    EXPECT_EQ(impatient.Send(), "no answer within 1 seconds");
    installRecorder();
    EXPECT_EQ(impatient.Send(), std::nullopt);
}

TEST_F(Sendmail, AProgramThatLeavesAnEnormousMessageUnreadIsAnswered) {
    temp.write("GAME.M1", std::string(5 << 20, 'x'));
    install("exec 0<&-\necho too large >&2\nexit 69\n");
    compose({"GAME.M1"});
    EXPECT_EQ(mail.Send(), "too large");
    installRecorder();
    EXPECT_EQ(mail.Send(), std::nullopt);
    EXPECT_EQ(ParsedMail(temp.read("message"))["0.bytes"], temp.read("GAME.M1"));
}

} // namespace turnpost
