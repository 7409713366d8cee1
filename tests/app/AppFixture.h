#pragma once

#include "app/Application.h"
#include "fakes/FakeMail.h"
#include "fakes/FakeSocket.h"
#include "fakes/FakeWindows.h"
#include "fakes/TempFolder.h"

#include <gtest/gtest.h>

namespace turnpost {

/// A program in a folder of its own. The test plays the host, who has found and named a game of the
/// players 1 and 4 in 2405 and has entered their addresses.
class AppFixture : public testing::Test {
  protected:
    using Texts = std::vector<std::string>;

    AppFixture() {
        host.write("GAME.HST", std::string(12, 'x') + '\x05' + '\0');
        host.write("GAME.M1", "one");
        host.write("GAME.M4", "four");
        storeSettings("Host");
        find("GAME.HST");
        game.GameName = "Cup";
        game.rows[0].PlayerEmail = "one@example.org";
        game.rows[3].PlayerEmail = "four@example.org";
    }

    void storeSettings(const std::string& name) {
        application.storeEmailSettings(name, "host@example.org", "mail:2525");
    }

    void find(const std::string& file) {
        windows.inFilePicker = [=, this] { application.pickFile(host.path(), file, false); };
        application.findGame();
    }

    void open(const TempFolder& place) {
        windows.inFilePicker = [&] { application.pickFile(place.path(), "GAME.NTP", false); };
        application.openGame();
    }

    /// The message boxes since the last call.
    Texts boxes() { return std::exchange(windows.boxes, {}); }

    TempFolder program;
    TempFolder host;
    const std::string folder = withSeparator(host.path());
    const std::string details = folder + "GAME.NTP";
    const std::string advice =
        "\r\nPlease take the double quotes out of names and addresses, and characters that this "
        "system's code page lacks, and save again.";
    FakeWindows windows;
    FakeSocket socket;
    Texts mailCalls;
    FakeMail* mail = nullptr;
    Application application{windows,
                            socket,
                            {program.path(), host.path()},
                            [this](const Settings&) { return fakeMailSystem(mailCalls, mail); }};
    const SharedValues& values = application.values();
    GameDetails& game = application.game();
};

} // namespace turnpost
