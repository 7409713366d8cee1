#include "mapi/DeliveryFixture.h"
#include "mapi/ParsedMail.h"
#include "mapi/SendmailMessages.h"
#include "support/PutBack.h"

namespace turnpost {

namespace fs = std::filesystem;

// Deliveries through a mail program that the test writes.
class Sendmail : public DeliveryFixture {
  protected:
    Sendmail() {
        player = {.IncludePlayer = 1,
                  .PlayerName = "Zoë Zimmer",
                  .PlayerEmail = " zoe@example.org ",
                  .AltEmail = "second@example.org",
                  .GameFile = "GAME.M2"};
        text = {"Turn 24", "Hello Zoë  \r\nFrom the host:\r\n.\r\n"};
    }

    // The commands of the mail program run in the temporary folder.
    void install(const std::string& commands, const std::string& folder = "bin") const {
        temp.makeFolder(folder);
        const std::string program = folder + "/sendmail";
        temp.write(program, "#!/bin/sh\ncd '" + temp.path() + "' || exit\n" + commands);
        fs::permissions(temp.path(program), fs::perms::owner_all);
    }

    std::string deliver() { return DeliveryFixture::deliver(session, mail); }

    Settings settings{.HostName = "Hänsel Host", .HostEmail = " host@example.org"};
    SendmailSession session{{temp.path("new"), temp.path("bin")}};
    SendmailMessages mail{settings, session, std::chrono::seconds(20)};
};

TEST_F(Sendmail, FindsTheFirstExecutableOfThatName) {
    temp.makeFolder("new/sendmail");
    temp.makeFolder("bin");
    temp.write("bin/sendmail", "not executable");
    deliver();
    EXPECT_EQ(display.boxes, Texts{"No mail system found"});
    install("echo old; exit 1");
    EXPECT_EQ(deliver(), "MAPI Error: old");
    fs::remove(temp.path("new/sendmail"));
    install("echo new; exit 1", "new");
    EXPECT_EQ(deliver(), "MAPI Error: new");
    const PutBack before("PATH");
    setenv("PATH", "/opt/bin::bin:./x:/usr/bin:/bin", 1);
    EXPECT_EQ(sendmailFolders(), Texts({"/usr/sbin", "/usr/lib", "/opt/bin", "/usr/bin", "/bin"}));
}

TEST_F(Sendmail, EveryAddressIsOneArgumentInAscii) {
    install("printf '%s ' \"$@\" >arguments; cat >/dev/null");
    const std::string own = "MAPI Error: Your own address is not one e-mail address: ";
    const std::string theirs = "MAPI Error: This is not one e-mail address: ";
    for (const auto& [host, to, copy, arguments, line] : std::vector<std::array<std::string, 5>>{
             {" host@bücher.de", " zoe@x.org ", " second@例え.jp",
              "-i -f host@xn--bcher-kva.de -- zoe@x.org second@xn--r8jz45g.jp ",
              "Email Generated OK"},
             {" ", "-oQ/tmp", "", "-i -- -oQ/tmp ", "Email Generated OK"},
             {" -bd", "zoe@x.org", "", "-i -- zoe@x.org ", "Email Generated OK"},
             {"h@x.org\nBcc: e@x.org", "zoe@x.org", "", "", own + "h@x.org\nBcc: e@x.org"},
             {"h\u200D@x.org", "zoe@x.org", "", "",
              "MAPI Error: Your own address cannot be sent: character 2 is invisible (U+200D)"},
             {"h@x.org", "zoe@x.org", "a@x.org, b@x.org", "", theirs + "a@x.org, b@x.org"}}) {
        settings.HostEmail = host;
        player.PlayerEmail = to;
        player.AltEmail = copy;
        fs::remove(temp.path("arguments"));
        EXPECT_EQ(deliver(), line);
        EXPECT_EQ(temp.read("arguments"), arguments);
    }
}

TEST_F(Sendmail, FailuresShowTheProgramsWordsOrItsEnd) {
    install("echo words >&2; exec sleep 60");
    SendmailMessages impatient(settings, session, std::chrono::milliseconds(300));
    text.MessageBody = std::string(10000, 'x');
    EXPECT_EQ(DeliveryFixture::deliver(session, impatient),
              "MAPI Error: words\r\nno answer within 2 seconds");
    // More than a pipe holds, because most of these programs do not read it.
    temp.write("big", std::string(1 << 20, 'x'));
    attachments.ExtraAttachments[0] = temp.path("big");
    for (const auto& [commands, words] : std::vector<std::pair<std::string, std::string>>{
             {"cat >/dev/null; printf '0\\n 1 \\t\\r\\n\\n  \\n2\\n3\\n4\\n5\\n' >&2; exit 1",
              " 1\r\n2\r\n3\r\n4\r\n5"},
             {"echo ' ' >&2; echo spoken; exit 1", "spoken"},
             {"exec 0<&-; printf 'kein Empf\\344nger' >&2; exit 67", "kein Empfänger"},
             {"exit 75", "Temporary failure, please try again later"},
             {"exit 63", "exit status 63"},
             {"echo spoken; echo words >&2; kill -KILL $$",
              "words\r\nThe mail program was ended by signal 9: Killed"}}) {
        install(commands);
        EXPECT_EQ(deliver(), "MAPI Error: " + words) << commands;
    }
    install("echo a warning >&2; cat >message");
    EXPECT_EQ(deliver(), "Email Generated OK");
    temp.write("bin/sendmail", "no program");
    EXPECT_EQ(deliver(),
              "MAPI Error: Cannot start " + temp.path("bin/sendmail") + "\r\nExec format error");
}

TEST_F(Sendmail, FilesThatVanishBeforeReadingAreAnError) {
    install("cat >/dev/null");
    session.SignOn();
    mail.SessionID(session.SessionID());
    mail.AttachmentIndex(0);
    mail.AttachmentPathName(temp.path("GAME.M2"));
    EXPECT_EQ(mail.Send(),
              Refusal{"Cannot read " + temp.path("GAME.M2") + "\r\nNo such file or directory"});
}

// The mail system nullmailer with a spool of its own. It only queues the mail, because the service
// that delivers it does not run here.
TEST_F(Sendmail, RealMailSystemQueuesEveryByte) {
    install("ln -s '" TURNPOST_NULLMAILER "/usr/sbin' '" TURNPOST_NULLMAILER "/usr/bin' .\n"
            "mkdir -p queue/tmp queue/queue\n"
            "NULLMAILER_TEST_PREFIX=$PWD exec sbin/sendmail \"$@\"",
            "new");
    const Texts names = {"GAME.M2", "Größe.txt", "銀河 \"Q\".zip"};
    temp.write(names[0], "");
    temp.write(names[1], "\r\n.\r\nFrom you \n\r");
    temp.write(names[2], std::string(100000, '\xFF'));
    attachments = {1, 0, {temp.path(names[1]), temp.path(names[2]), ""}};
    ASSERT_EQ(deliver(), "Email Generated OK") << "tools/install-packages test unpacks nullmailer";

    // Each entry holds the envelope (one address per line), an empty line and the message.
    const std::string envelope = "host@example.org\nzoe@example.org\nsecond@example.org\n\n";
    const fs::directory_iterator queued(temp.path("queue/queue"));
    const std::string entry = temp.read("queue/queue/" + queued->path().filename().string());
    EXPECT_EQ(entry.substr(0, envelope.size()), envelope);
    const ParsedMail parsed(entry.substr(envelope.size()));
    EXPECT_EQ(parsed["from"] + parsed["to"] + "Copy: " + parsed["cc"] + parsed["subject"],
              "Hänsel Host\nhost@example.org\nZoë Zimmer\nzoe@example.org\n"
              "Copy: Zoë Zimmer\nsecond@example.org\nTurn 24");
    EXPECT_EQ(parsed["text"], "Hello Zoë  \nFrom the host:\n.\n\n   ");
    for (size_t i = 0; i < names.size(); ++i) {
        EXPECT_EQ(parsed[std::to_string(i) + ".name"], names[i]);
        EXPECT_EQ(parsed[std::to_string(i) + ".bytes"], temp.read(names[i]));
    }
}

} // namespace turnpost
