#include "LastingRun.h"

#include "TurnServer.h"
#include "UsageTable.h"
#include "desk/Waiting.h"

#include <stdexcept>

namespace turnpost::lasting {

namespace {

// The toolkit's caches fill in these.
constexpr int warmUps = 10;
constexpr int samples = 20;

std::string linesOfAllPlayers(const std::string& line) {
    std::string text;
    for (int player = 1; player <= 16; ++player) {
        text += "Player " + std::to_string(player) + ": " + line + "\n";
    }
    return text;
}

} // namespace

LastingRun::LastingRun() {
    host.startGame(server.address(), turnLengths());
    host.type("GameName", "Lasting");
}

bool LastingRun::send(int times) {
    return repeat("Sends to 16 players", times, [this] { sendOnce(); });
}

bool LastingRun::openDialogs(int times) {
    return repeat("Openings of every dialog", times, [this] { openEachDialogOnce(); });
}

bool LastingRun::repeat(const std::string& what, int times, const std::function<void()>& once) {
    for (int i = 0; i < warmUps; ++i) {
        once();
    }
    UsageTable usage(what);
    for (int done = 1; done <= times; ++done) {
        once();
        if (done * samples / times != (done - 1) * samples / times) {
            usage.sample(done);
        }
    }
    return usage.isFlat();
}

void LastingRun::sendOnce() {
    host.watcher().expectReport();
    host.click("butSend");
    desk::waitUntil([this] { return host.watcher().done(); });
    if (host.watcher().takeTexts() != std::vector{linesOfAllPlayers("Email sent OK")}) {
        throw std::runtime_error("another report");
    }
    server.checkSend();
    expectClosed();
}

void LastingRun::openEachDialogOnce() {
    auto& watcher = host.watcher();
    const auto pressing = [this](const QString& button) {
        return [this, button](QWidget& form) { host.click(button, &form); };
    };
    watcher.expect("frmSettings", pressing("butOK"));
    host.chooseMenu("mnuEmailSets");
    watcher.expect("frmMessage", pressing("mnuOK"));
    host.chooseMenu("mnuMsg");
    watcher.expect("frmAtch", [this](QWidget& form) {
        host.expectPicker("GAME.HST");
        host.click("butAddAtch(0)", &form);
        host.click("butRemove(0)", &form);
        host.click("butOK", &form);
    });
    host.click("butAtch");
    watcher.expect("frmOpen", pressing("butCancel"));
    host.click("GameChoose");
    watcher.expectMessage();
    host.chooseMenu("mnuSave");
    watcher.expect("frmStore", [this](QWidget& form) {
        host.click("butStore(0)", &form);
        host.click("mnuOK", &form);
    });
    host.chooseMenu("mnuStoredCon");
    watcher.expect("frmAbout", pressing("cmdOK"));
    host.chooseMenu("mnuAbout");
    host.click("PlaySel(1)");
    watcher.expectReport();
    host.click("butSend");
    host.click("PlaySel(0)");
    const auto texts = watcher.takeTexts();
    if (texts.size() != 2 || texts[0] != "Details saved to " + host.folder() + "/GAME.NTP" ||
        texts[1] != linesOfAllPlayers("Player Skipped")) {
        throw std::runtime_error("another message box or report");
    }
    expectClosed();
}

void LastingRun::expectClosed() {
    desk::runPendingEvents();
    if (!host.watcher().done() || !host.watcher().faults().empty()) {
        throw std::runtime_error("a window was missing or left open");
    }
}

} // namespace turnpost::lasting
