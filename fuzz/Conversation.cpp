#include "Property.h"
#include "fakes/TempFolder.h"
#include "platform/CodePage.h"
#include "platform/Messages.h"
#include "smtp/MessageText.h"
#include "smtp/SendDriver.h"

#include <utility>

using namespace turnpost;
using fuzz::require;

namespace {

/// The fuzzer's end of the line: keeps what each connection was told.
class Line final : public Socket {
  public:
    std::vector<std::string> sent;

    void setEvents(SocketEvents* newEvents) override { events = newEvents; }
    void Connect(const std::string&, std::uint16_t) override {
        require(!open, "a connection is closed before the next is made");
        open = true;
        sent.emplace_back();
    }
    bool isOpen() const override { return open; }
    void SendData(const std::string& bytes) override {
        require(open, "nothing is sent without a connection");
        sent.back() += bytes;
    }
    std::string GetData() override { return std::exchange(waiting, {}); }
    void Close() override { open = false; }
    std::chrono::steady_clock::duration silence() const override { return {}; }
    void CloseWhenSent() override {
        require(sent.back().ends_with("QUIT\r\n"), "only a finished conversation is let run out");
        Close();
    }

    void arrive(std::string bytes) {
        waiting = std::move(bytes);
        events->DataArrival();
    }
    void fail() { events->Error(10054, "reset"); }

  private:
    SocketEvents* events = nullptr;
    std::string waiting;
    bool open = false;
};

class Screen final : public SendDisplay, public MessageBox {
  public:
    int reports = 0;
    int boxes = 0;

    void setProgress(double fraction) override {
        require(fraction >= 0 && fraction <= 1, "the bar keeps to its track");
    }
    void openReport() override { ++reports; }
    void show(const std::string&) override { ++boxes; }
};

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
    std::vector<std::string> parts(size_t row) const {
        const PlayerSlot& player = details.rows.at(row);
        SendState state;
        const std::string number = std::to_string(row + 1);
        state.PlayerSubject = "Turn " + number;
        state.PlayerBody = "Hello\r\n.\r\nPlayer " + number;
        std::string text;
        for (const std::string& part : messageText(settings, player, state)) {
            text += part;
        }
        return {heloLine(settings), mailLine(settings), recipientLine(player), "DATA\r\n", text,
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
    Line line;
    Screen screen;
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
            line.fail();
            broken = true;
            break;
        }
        line.arrive(reply);
        if (reply.empty()) {
            continue;
        }
        if (accepted(reply)) {
            told += game.parts(row).at(step);
        }
        require(line.sent.at(row / 3) == told, "one accepted reply, one part; its own row's words");
        step = accepted(reply) ? step + 1 : 6;
        if (step == 6) {
            require(report.at(row) == (accepted(reply) ? messages::emailSent()
                                                       : messages::smtpError(fromWireBytes(reply))),
                    "a row's line says what came of it");
            row += 3;
            step = 0;
            told.clear();
        }
    }
    require(screen.boxes == (broken ? 1 : 0), "a box for a broken connection and nothing else");
    require(screen.reports == (row >= rowCount ? 1 : 0), "one report, at the end");
    require(line.isOpen() == (!broken && row < rowCount), "connected while a row is under way");
    for (size_t i = row; i < rowCount; i += 3) {
        require(report.at(i).empty(), "no outcome for rows not yet served");
    }
    return 0;
}
