#include "mapi/ParsedMail.h"
#include "mapi/SendmailFixture.h"

#include <cstdlib>

namespace turnpost {

namespace fs = std::filesystem;

// The mail system nullmailer with a spool of its own. It only queues: delivering is the work of a
// service that does not run here.
class RealMailSystem : public SendmailFixture {
  protected:
    RealMailSystem() {
        const fs::path unpacked(TURNPOST_NULLMAILER "/usr");
        EXPECT_TRUE(fs::exists(unpacked)) << "tools/install-packages test unpacks it";
        temp.makeFolder("queue/tmp");
        temp.makeFolder("queue/queue");
        fs::remove_all(temp.path("bin"));
        fs::create_directory_symlink(unpacked / "sbin", temp.path("sbin"));
        fs::create_directory_symlink(unpacked / "bin", temp.path("bin"));
        setenv("NULLMAILER_TEST_PREFIX", temp.path().c_str(), 1);
        session = SendmailSession({temp.path("sbin")});
    }
};

TEST_F(RealMailSystem, QueuesTextAndFilesByteForByteUnderTheirOwnNames) {
    std::string bytes;
    for (unsigned i = 0; bytes.size() < 102400; i = i * 1103515245U + 12345U) {
        bytes += static_cast<char>(i >> 16U);
    }
    const std::vector<std::string> names = {"GAME.M1", "Größe.txt", "銀河 \"Q\".zip"};
    temp.write(names[0], "");
    temp.write(names[1], "\r\n.\r\nFrom you \n\r");
    temp.write(names[2], bytes);
    compose(names);
    mail.MsgNoteText("Hello Zoë  \r\nFrom the host:\r\n.\r\n\r\n    ");
    ASSERT_EQ(mail.Send(), std::nullopt);

    // Each entry holds the envelope, one address a line, an empty line, the message.
    const fs::directory_iterator queued(temp.path("queue/queue"));
    const std::string entry = temp.read("queue/queue/" + queued->path().filename().string());
    EXPECT_EQ(std::distance(queued, {}), 1);
    const std::string envelope = "host@example.org\nzoe@example.org\nsecond@example.org\n\n";
    EXPECT_EQ(entry.substr(0, envelope.size()), envelope);
    const ParsedMail parsed(entry.substr(envelope.size()));
    EXPECT_EQ(parsed["from"], "Hänsel Host\nhost@example.org\n");
    EXPECT_EQ(parsed["to"], "Zoë Zimmer\nzoe@example.org\n");
    EXPECT_EQ(parsed["cc"], "Zoë Zimmer\nsecond@example.org\n");
    EXPECT_EQ(parsed["subject"], "Turn 24");
    EXPECT_EQ(parsed["text"], "Hello Zoë  \nFrom the host:\n.\n\n    ");
    for (size_t i = 0; i < names.size(); ++i) {
        EXPECT_EQ(parsed[std::to_string(i) + ".name"], names[i]);
        EXPECT_TRUE(parsed[std::to_string(i) + ".bytes"] == temp.read(names[i])) << names[i];
    }
}

} // namespace turnpost
