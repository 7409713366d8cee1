#pragma once

#include "app/Application.h"
#include "fakes/FakeMail.h"
#include "fakes/FakeSocket.h"
#include "fakes/FakeWindows.h"
#include "fakes/TempFolder.h"

#include <gtest/gtest.h>

namespace turnpost {

/// A program in a folder of its own, with a person played by the test. The host's folder holds a
/// game of the players 1 and 4 in 2405.
class AppFixture : public testing::Test {
  protected:
    using Texts = std::vector<std::string>;

    AppFixture() {
        writeHostFile('\x05');
        host.write("GAME.M1", "one");
        host.write("GAME.M4", "four");
    }

    void writeHostFile(char year) const {
        host.write("GAME.HST", std::string(12, 'x') + year + std::string(7, '\0'));
    }

    void start(const Settings& settings = {}) {
        program.write("TURNPOST.INI", printSettings(settings));
        application.startUp();
    }

    /// The person picks this file the next time the picker opens.
    void willPick(const std::string& place, const std::string& file) {
        windows.inFilePicker = [this, place, file] { application.pickFile(place, file, false); };
    }

    void find(const std::string& hostFile) {
        willPick(host.path(), hostFile);
        application.findGame();
    }

    void open(const TempFolder& place, const std::string& file) {
        willPick(place.path(), file);
        application.openGame();
    }

    void startWithGame() {
        start({"Host", "host@example.org", "mail:2525", {}, ""});
        find("GAME.HST");
        game.GameName = "Cup";
        windows.shown.clear();
    }

    TempFolder program;
    TempFolder configuration;
    TempFolder host;
    const std::string folder = withSeparator(host.path());
    FakeWindows windows;
    FakeSocket socket;
    Texts mailCalls;
    /// What happens while the mail system takes a message.
    std::function<void()> whileMailing = [] {};
    Application application{
        windows, socket, {program.path(), configuration.path()}, [this](const Settings&) {
            auto messages = std::make_unique<FakeMail>(mailCalls);
            messages->inSend = [this] {
                whileMailing();
                return std::nullopt;
            };
            return MailSystem{std::make_unique<FakeMail>(mailCalls), std::move(messages)};
        }};
    const SharedValues& values = application.values();
    GameDetails& game = application.game();
};

} // namespace turnpost
