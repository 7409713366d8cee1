#include "Property.h"
#include "fakes/FakeDisplay.h"
#include "fakes/FakeSocket.h"
#include "fakes/TempFolder.h"
#include "platform/CodePage.h"
#include "smtp/SendDriver.h"

using namespace turnpost;
using fuzz::require;

namespace {

// Every third row gets a message without files.
struct Game {
    TempFolder folder;
    GameDetails details;
    MessageTemplate message{"Turn <<PN>>", "Hello\r\n.\r\nPlayer <<PN>>"};
    AttachmentChoices attachments{0, 0, {}};
    Settings settings{"Host", "host@example.org", "mail", {}, ""};

    Game() {
        folder.write("GAME.HST", "host");
        details.GamePath = withSeparator(folder.path());
        for (size_t i = 0; i < rowCount; i += 3) {
            const std::string number = std::to_string(i + 1);
            details.rows.at(i) = {1, "P" + number, "p" + number + "@example.org", "", "", true};
        }
    }

    /// What a row's connection is told, part by part.
    static std::vector<std::string> parts(size_t row) {
        const std::string number = std::to_string(row + 1);
        const std::string address = "p" + number + "@example.org";
        return {"HELO host\r\n",
                "MAIL FROM:host@example.org\r\n",
                "RCPT TO:" + address + "\r\n",
                "DATA\r\n",
                "From:Host <host@example.org>\r\nTo:P" + number + " <" + address +
                    ">\r\nSubject:Turn " + number + "\r\n\r\nHello\r\n..\r\nPlayer " + number +
                    "\r\n\r\n\r\n.\r\n",
                "QUIT\r\n"};
    }
};

bool accepted(const std::string& reply) {
    return reply.starts_with("220") || reply.starts_with("250") || reply.starts_with("354");
}

} // namespace

// Each text of the input is one arrival of data; a lone "!" is a broken connection. No event comes
// without a connection.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, size_t size) {
    static const Game game;
    FakeSocket line;
    FakeDisplay screen;
    SendReport report;
    SendDriver driver({game.details, game.message, game.attachments}, game.settings, report, line,
                      screen, screen);
    driver.butSend_Click();
    size_t row = 0;
    std::string told;
    size_t step = 0;
    bool broken = false;
    for (const std::string& reply : fuzz::textsOf(data, size, 64)) {
        if (!line.isOpen()) {
            break;
        }
        if (reply == "!") {
            line.fail(10054, "reset");
            broken = true;
            break;
        }
        line.arrive(reply);
        if (reply.empty()) {
            continue;
        }
        if (accepted(reply)) {
            told += Game::parts(row).at(step);
        }
        require(line.sent.at(row / 3) == told, "one accepted reply, one part; its own row's words");
        step = accepted(reply) ? step + 1 : 6;
        if (step == 6) {
            require(report.at(row) ==
                        (accepted(reply) ? "Email sent OK" : "SMTP Error: " + fromWireBytes(reply)),
                    "a row's line says what came of it");
            row += 3;
            step = 0;
            told.clear();
        }
    }
    const auto boxes = broken ? std::vector<std::string>{"Winsock Error number 10054\r\nreset"}
                              : std::vector<std::string>();
    require(screen.boxes == boxes, "a box for a broken connection and nothing else");
    require(screen.reports == (row >= rowCount ? 1 : 0), "one report, at the end");
    require(line.isOpen() == (!broken && row < rowCount), "connected while a row is under way");
    for (const double fraction : screen.progress) {
        require(fraction >= 0 && fraction <= 1, "the bar keeps to its track");
    }
    for (size_t i = row; i < rowCount; i += 3) {
        require(report.at(i).empty(), "no outcome for rows not yet served");
    }
    return 0;
}
