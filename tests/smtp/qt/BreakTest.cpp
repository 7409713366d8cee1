#include "automation/SampleGame.h"
#include "automation/ScriptedServer.h"
#include "automation/Waiting.h"
#include "support/WindowTest.h"

namespace turnpost::automation {

// Four players. The server refuses the first in words that look like markup, and resets the
// connection of the second.
class Breaks : public WindowTest {
  protected:
    Breaks() { host().startGame(server.address(), {{1, 44}, {2, 44}, {4, 44}, {16, 44}}); }

    void breakOff() {
        serve = false;
        host().watcher().expectMessage();
        host().click("butSend");
        ASSERT_TRUE(waitUntil([this] { return host().watcher().done(); }));
    }

    // The tooltip and the accessible description at the number and at the tick of a row.
    std::string at(int row) {
        std::string found;
        for (const char* control : {"PlayNum(%1)", "IncludePlayer(%1)"}) {
            const auto* shown = findControl<QWidget>(window(), QString(control).arg(row));
            found += shown->toolTip().toStdString() + "|" +
                     shown->accessibleDescription().toStdString() + "|";
        }
        return found;
    }

    static std::string note(const std::string& tip, const std::string& words) {
        const std::string once = "<p style='white-space:pre'>" + tip + "</p>|" + words + "|";
        return once + once;
    }

    bool serve = false;
    ScriptedServer server{[this](Point point, int, const std::string& line) {
        const bool first = line == "RCPT TO:p1@example.org";
        return serve || point < Point::Recipient
                   ? goodAnswer(point)
                   : Answer{first ? "550 <b>full</b> & gone\r\n" : "",
                            first ? Answer::Then::Continue : Answer::Then::Reset};
    }};
};

TEST_F(Breaks, TooltipsSayWhatEachRowGot) {
    const auto open = [this](const char* opener, const char* file) {
        return [this, opener, file] {
            host().expectPicker(file);
            WindowTest::open(opener);
        };
    };
    host().type("GameName", "Cup");
    boxBy("mnuSave");
    in("frmStore", "mnuStoredCon", [this](QWidget& form) {
        host().click("butStore(0)", &form);
        host().click("mnuOK", &form);
    });
    const std::function<void()> next[] = {
        open("GameChoose", "GAME.HST"), open("mnuOpen", "GAME.NTP"),
        [this] { WindowTest::open("mnuStoredG(1)"); },
        [this] {
            serve = true;
            host().watcher().expectReport();
            host().click("butSend");
            ASSERT_TRUE(waitUntil([this] { return host().watcher().done(); }));
        },
        [this] { WindowTest::open("mnuNew"); }};
    for (const auto& command : next) {
        host().chooseMenu("mnuStoredG(1)");
        EXPECT_EQ(at(0) + at(1) + at(15), "||||||||||||");
        breakOff();
        const std::string broke = "Broke off here: may or may not have arrived";
        EXPECT_EQ(at(0), note("SMTP Error: 550 &lt;b&gt;full&lt;/b&gt; &amp; gone",
                              "SMTP Error: 550 <b>full</b> & gone"));
        EXPECT_EQ(at(1), note(broke, broke));
        EXPECT_EQ(at(15), note("Not reached", "Not reached"));
        command();
        EXPECT_EQ(at(0) + at(1) + at(15), "||||||||||||");
    }
}

} // namespace turnpost::automation
