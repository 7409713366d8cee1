#pragma once

#include "app/Application.h"
#include "fakes/FakeMail.h"
#include "fakes/FakeSocket.h"
#include "fakes/FakeWindows.h"
#include "fakes/TempFolder.h"

#include <gtest/gtest.h>

namespace turnpost {

/// A program in a folder of its own. The test plays the host, who has found and named a game of the
/// players 1 and 4 in 2405.
class AppFixture : public testing::Test {
  protected:
    using Texts = std::vector<std::string>;

    AppFixture() {
        writeHostFile('\x05');
        host.write("GAME.M1", "one");
        host.write("GAME.M4", "four");
        start({"Host", "host@example.org", "mail:2525", {}, ""});
        willPick(host, "GAME.HST");
        application.findGame();
        game.GameName = "Cup";
        windows.shown.clear();
    }

    void writeHostFile(char year) const {
        host.write("GAME.HST", std::string(12, 'x') + year + '\0');
    }

    void start(const Settings& settings) {
        program.write("TURNPOST.INI", printSettings(settings));
        application.startUp();
    }

    /// The host picks this file the next time the picker opens.
    void willPick(const TempFolder& place, const std::string& file) {
        windows.inFilePicker = [this, path = place.path(), file] {
            application.pickFile(path, file, false);
        };
    }

    void open(const TempFolder& place, const std::string& file) {
        willPick(place, file);
        application.openGame();
    }

    TempFolder program;
    TempFolder host;
    const std::string folder = withSeparator(host.path());
    FakeWindows windows;
    FakeSocket socket;
    Texts mailCalls;
    FakeMail* mail = nullptr;
    Application application{
        windows, socket, {program.path(), host.path()}, [this](const Settings&) {
            auto messages = std::make_unique<FakeMail>(mailCalls);
            mail = messages.get();
            return MailSystem{std::make_unique<FakeMail>(mailCalls), std::move(messages)};
        }};
    const SharedValues& values = application.values();
    GameDetails& game = application.game();
};

} // namespace turnpost
