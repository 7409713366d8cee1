#include "Property.h"
#include "fakes/FakeDisplay.h"
#include "fakes/FakeSocket.h"
#include "fakes/TempFolder.h"
#include "smtp/SendDriver.h"
#include "text/CodePage.h"

using namespace turnpost;
using fuzz::require;

namespace {

// In every group of three rows, the first gets a message, the second has no address, and the third
// is skipped.
GameDetails gameIn(const TempFolder& folder) {
    folder.write("GAME.HST", "host");
    GameDetails game{.GamePath = withSeparator(folder.path())};
    for (int row = 0; row < rowCount; ++row) {
        game.row(row) = {.IncludePlayer = row % 3 < 2,
                         .PlayerName = "P",
                         .PlayerEmail = row % 3 == 0 ? "p" + std::to_string(row) : "",
                         .Shown = true};
    }
    return game;
}

// How the parts begin that the program sends on a row's connection.
std::array<std::string, 6> beginnings(size_t row) {
    return {"HELO h\r\n", "MAIL FROM:h\r\n", "RCPT TO:p" + std::to_string(row) + "\r\n",
            "DATA\r\n",   "From:H <h>\r\n",  "QUIT\r\n"};
}

bool accepted(const std::string& reply) {
    return reply.starts_with("220") || reply.starts_with("250") || reply.starts_with("354");
}

} // namespace

// Each text of the input is one arrival of data; the text "!" is a broken connection. Without a
// connection there are no events.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, size_t size) {
    static const TempFolder folder;
    static const GameDetails game = gameIn(folder);
    static const MessageTemplate message{"Turn", "Hello"};
    static const AttachmentChoices attachments{0, 0, {}};
    static const Settings settings{.HostName = "H", .HostEmail = "h", .SmtpServer = "mail"};
    FakeSocket line;
    FakeDisplay screen;
    SendReport report;
    SendDriver driver({game, message, attachments}, settings, report, line, screen, screen);
    driver.butSend_Click();
    size_t row = 0;
    size_t step = 0;
    size_t told = 0;
    size_t boxes = 0;
    for (const std::string& reply : fuzz::textsOf(data, size, 64)) {
        if (!line.isOpen()) {
            break;
        }
        if (reply == "!") {
            line.fail(10054, "reset");
            boxes = 1;
            break;
        }
        line.arrive(reply);
        if (reply.empty()) {
            continue;
        }
        const std::string part = line.sent.at(row / 3).substr(told);
        require(accepted(reply) ? part.starts_with(beginnings(row).at(step)) : part.empty(),
                "one accepted reply, one part; its own row's words");
        told += part.size();
        step = accepted(reply) ? step + 1 : 6;
        if (step == 6) {
            require(report.at(row) ==
                        (accepted(reply) ? "Email sent OK" : "SMTP Error: " + fromWireBytes(reply)),
                    "a row's line says what happened to it");
            row += 3;
            step = 0;
            told = 0;
        }
    }
    require(screen.boxes.size() == boxes, "a box for a broken connection and nothing else");
    require(screen.reports == (row >= rowCount ? 1 : 0), "one report, at the end");
    require(line.isOpen() == (boxes == 0 && row < rowCount), "connected during each row");
    return 0;
}
