#include "compose/MUUEncode.h"
#include "desk/Host.h"
#include "desk/SampleGame.h"
#include "desk/UuDecoder.h"
#include "desk/Waiting.h"
#include "platform/Files.h"

#include <QDir>
#include <QProcess>
#include <gtest/gtest.h>

namespace turnpost::desk {

namespace {

constexpr int longestRun = 20000; // milliseconds

// What the system's own decoder makes of a text with one block: name and bytes of the file. A file
// whose length is a multiple of 45 ends in two empty lines; the decoder takes the first one as the
// end of the data, writes the file, and complains that "end" does not follow at once.
DecodedFile systemUudecode(const std::string& text, size_t length) {
    const QTemporaryDir folder;
    QProcess uudecode;
    uudecode.setWorkingDirectory(folder.path());
    uudecode.start("uudecode", {});
    uudecode.write(text.data(), static_cast<qint64>(text.size()));
    uudecode.closeWriteChannel();
    EXPECT_TRUE(uudecode.waitForFinished(longestRun));
    EXPECT_EQ(uudecode.exitCode(), length % 45 == 0 ? 2 : 0)
        << length << uudecode.readAllStandardError().toStdString();
    const QStringList files = QDir(folder.path()).entryList(QDir::Files);
    EXPECT_EQ(files.size(), 1);
    const std::string name = files.value(0).toStdString();
    return {name, readFile(folder.path().toStdString() + "/" + name)};
}

// A real SMTP server that stores what it accepts.
class MailboxServer {
  public:
    MailboxServer() {
        server.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        server.start("/usr/bin/python3",
                     {TURNPOST_TESTS "/support/mailbox_server.py", folder.filePath("mail")});
        const bool ready = waitUntil([this] { return server.canReadLine(); });
        EXPECT_TRUE(ready) << server.errorString().toStdString();
        port = server.readLine().trimmed().toStdString();
    }
    MailboxServer(const MailboxServer&) = delete;
    MailboxServer& operator=(const MailboxServer&) = delete;
    ~MailboxServer() {
        server.closeWriteChannel();
        if (!server.waitForFinished(longestRun)) {
            server.kill();
            server.waitForFinished(longestRun);
        }
    }

    std::string address() const { return "127.0.0.1:" + port; }

    std::vector<std::string> messages() const {
        std::vector<std::string> texts;
        const QDir mail(folder.filePath("mail/new"));
        for (const QString& name : mail.entryList(QDir::Files)) {
            texts.push_back(readFile(mail.filePath(name).toStdString()));
        }
        return texts;
    }

  private:
    QTemporaryDir folder;
    QProcess server;
    std::string port;
};

std::string withDosLines(const std::string& text) {
    std::string result;
    for (const char c : text) {
        result += c == '\n' ? std::string("\r\n") : std::string(1, c);
    }
    return result;
}

} // namespace

TEST(RealDecoder, TheSystemsUudecodeGivesBackEveryLengthAroundALineEnd) {
    for (size_t length = 0; length <= 137; ++length) {
        const std::string bytes = sampleBytes(length, static_cast<int>(length));
        const DecodedFile decoded = systemUudecode(uuencodedBlock("GAME.M3", bytes), length);
        EXPECT_EQ(decoded.name, "GAME.M3");
        EXPECT_EQ(decoded.bytes, bytes) << length << " bytes";
    }
}

TEST(RealServer, StoresEveryPlayersFileUnchangedPeriodsAtLineStartsIncluded) {
    const std::map<int, size_t> lengths = {
        {1, 0},  {2, 1},   {3, 14},   {4, 44},   {5, 45},   {6, 46},   {7, 59},    {8, 89},
        {9, 90}, {10, 91}, {11, 104}, {12, 134}, {13, 135}, {14, 136}, {15, 2999}, {16, 100000}};
    const MailboxServer server;
    Host host;
    const auto files = host.startGame(server.address(), lengths);
    host.desktop().app().storeMessage({"Turn <<PN>>", ".first line\r\n..second\r\nlast <<PN>>"});
    host.watcher().expectReport();
    host.click("butSend");
    ASSERT_TRUE(waitUntil([&] { return host.watcher().done(); }));
    ASSERT_EQ(host.watcher().faults(), std::vector<std::string>{});
    const auto messages = server.messages();
    ASSERT_EQ(messages.size(), 16U) << host.watcher().texts()[0];
    std::map<int, int> seen;
    for (const std::string& stored : messages) {
        const std::string text = withDosLines(stored);
        const size_t at = text.find("\nTo: <p");
        const size_t start = at == std::string::npos ? text.find("To: <p") + 6 : at + 7;
        const int player = std::stoi(text.substr(start));
        const std::string number = std::to_string(player);
        ++seen[player];
        EXPECT_NE(text.find("\r\n\r\n.first line\r\n..second\r\nlast " + number + "\r\n"),
                  std::string::npos);
        const DecodedFile decoded = systemUudecode(stored, lengths.at(player));
        EXPECT_EQ(decoded.name, "GAME.M" + number);
        EXPECT_EQ(decoded.bytes, files.at(player)) << "player " << player;
    }
    EXPECT_EQ(seen.size(), 16U);
}

} // namespace turnpost::desk
