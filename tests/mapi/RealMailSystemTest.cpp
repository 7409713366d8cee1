#include "mapi/ParsedMail.h"
#include "mapi/SendmailFixture.h"

#include <cstdlib>

namespace turnpost {

using test::ParsedMail;

namespace fs = std::filesystem;

// The mail system nullmailer with a spool of its own. It only queues: delivering is the work of a
// service that does not run here.
class RealMailSystem : public SendmailFixture {
  protected:
    RealMailSystem() {
        const fs::path unpacked(TURNPOST_NULLMAILER "/usr");
        EXPECT_TRUE(fs::exists(unpacked)) << "tools/install-packages test unpacks it";
        temp.makeFolder("system/queue/tmp");
        temp.makeFolder("system/queue/queue");
        fs::create_directory_symlink(unpacked / "bin", temp.path("system/bin"));
        fs::create_directory_symlink(unpacked / "sbin", temp.path("system/sbin"));
        setenv("NULLMAILER_TEST_PREFIX", temp.path("system").c_str(), 1);
        fs::remove_all(temp.path("bin"));
        fs::create_directory_symlink(unpacked / "sbin", temp.path("bin"));
    }
    ~RealMailSystem() override { unsetenv("NULLMAILER_TEST_PREFIX"); }

    // What a queue file holds: the envelope, one address a line, an empty line, the message.
    std::vector<std::string> queued() const {
        std::vector<std::string> found;
        for (const auto& entry : fs::directory_iterator(temp.path("system/queue/queue"))) {
            found.push_back(temp.read("system/queue/queue/" + entry.path().filename().string()));
        }
        return found;
    }
};

TEST_F(RealMailSystem, QueuesTextAndFilesByteForByteUnderTheirOwnNames) {
    std::string allBytes;
    for (int i = 0; i < 256; ++i) {
        allBytes += static_cast<char>(i);
    }
    std::string large;
    for (unsigned i = 0; large.size() < 102400; i = i * 1103515245U + 12345U) {
        large += static_cast<char>(i >> 16U);
    }
    const std::vector<std::string> names = {"GAME.M1", "GAME.XY", "Größe der Flotten 24.txt",
                                            "銀河 \"Q\".zip"};
    temp.write(names[0], "");
    temp.write(names[1], allBytes);
    temp.write(names[2], "\r\n.\r\nFrom you \n\r");
    temp.write(names[3], large);
    compose(names);
    const std::string text = "Hello Zoë  \r\nFrom the host:\r\n.\r\n\r\n    ";
    mail.MsgNoteText(text);
    ASSERT_EQ(mail.Send(), std::nullopt);

    ASSERT_EQ(queued().size(), 1U);
    const std::string entry = queued().front();
    const size_t envelopeEnd = entry.find("\n\n") + 2;
    EXPECT_EQ(entry.substr(0, envelopeEnd),
              "host@example.org\nzoe@example.org\nsecond@example.org\n\n");
    const ParsedMail parsed(entry.substr(envelopeEnd));
    EXPECT_EQ(parsed["from"], "Hänsel Host\nhost@example.org\n");
    EXPECT_EQ(parsed["to"], "Zoë Zimmer\nzoe@example.org\n");
    EXPECT_EQ(parsed["cc"], "Zoë Zimmer\nsecond@example.org\n");
    EXPECT_EQ(parsed["text"], "Hello Zoë  \nFrom the host:\n.\n\n    ");
    for (size_t i = 0; i < names.size(); ++i) {
        EXPECT_EQ(parsed[std::to_string(i) + ".name"], names[i]);
        EXPECT_TRUE(parsed[std::to_string(i) + ".bytes"] == temp.read(names[i])) << names[i];
    }
}

TEST_F(RealMailSystem, ItsOwnWordsSayWhyItDoesNotTakeAMessage) {
    compose();
    addRecipient(0, "zoe@", mainRecipient);
    EXPECT_EQ(mail.Send(), "Invalid recipient: zoe@");
    EXPECT_EQ(queued(), std::vector<std::string>());
}

} // namespace turnpost
