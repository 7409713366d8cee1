#include "Property.h"
#include "compose/MUUEncode.h"
#include "fakes/FakeDisplay.h"
#include "fakes/FakeSocket.h"
#include "fakes/TempFolder.h"
#include "smtp/SendDriver.h"
#include "text/CodePage.h"

using namespace turnpost;
using fuzz::require;

namespace {

// In every group of three rows, the first gets a message with a file, the second has no address,
// and the third is skipped.
struct Game {
    TempFolder folder;
    GameDetails details;
    MessageTemplate message{"Turn <<PN>>", "Hello\r\n.\r\nPlayer <<PN>>"};
    AttachmentChoices attachments{0, 0, {folder.path("EXTRA")}};
    Settings settings{"Host", " host@example.org ", "mail", {}, ""};

    Game() {
        folder.write("GAME.HST", "host");
        folder.write("EXTRA", "bytes");
        details.GamePath = withSeparator(folder.path());
        for (size_t i = 0; i < rowCount; ++i) {
            const std::string name = "P" + std::to_string(i + 1);
            details.rows.at(i) = {i % 3 < 2, name, i % 3 == 0 ? " p@" + name : "", "alt", "", true};
        }
    }

    /// All that the program sends on a row's connection, part by part.
    static std::vector<std::string> parts(size_t row) {
        const std::string number = std::to_string(row + 1);
        const std::string name = "P" + number;
        return {"HELO host\r\n",
                "MAIL FROM:host@example.org\r\n",
                "RCPT TO:p@" + name + "\r\n",
                "DATA\r\n",
                "From:Host < host@example.org >\r\nTo:" + name + " < p@" + name + ">\r\nCC:" +
                    name + "<alt>\r\nSubject:Turn " + number + "\r\n\r\nHello\r\n..\r\nPlayer " +
                    number + "\r\n\r\n" + uuencodedBlock("EXTRA", "bytes") + "\r\n\r\n.\r\n",
                "QUIT\r\n"};
    }
};

bool accepted(const std::string& reply) {
    return reply.starts_with("220") || reply.starts_with("250") || reply.starts_with("354");
}

} // namespace

// Each text of the input is one arrival of data; the text "!" is a broken connection. Without a
// connection there are no events.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, size_t size) {
    static const Game game;
    FakeSocket line;
    FakeDisplay screen;
    SendReport report;
    SendDriver driver({game.details, game.message, game.attachments}, game.settings, report, line,
                      screen, screen);
    driver.butSend_Click();
    size_t row = 0;
    size_t step = 0;
    std::string told;
    std::vector<std::string> boxes;
    for (const std::string& reply : fuzz::textsOf(data, size, 64)) {
        if (!line.isOpen()) {
            break;
        }
        if (reply == "!") {
            line.fail(10054, "reset");
            boxes = {"Winsock Error number 10054\r\nreset"};
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
                    "a row's line says what happened to it");
            row += 3;
            step = 0;
            told.clear();
        }
    }
    require(screen.boxes == boxes, "a box for a broken connection and nothing else");
    require(screen.reports == (row >= rowCount ? 1 : 0), "one report, at the end");
    require(line.isOpen() == (boxes.empty() && row < rowCount), "connected during each row");
    return 0;
}
