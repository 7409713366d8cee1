#include "BenchGame.h"

#include "desk/SampleGame.h"
#include "platform/Files.h"
#include "storage/GameDetailsFile.h"
#include "storage/SettingsFile.h"

namespace turnpost::bench {

Settings benchSettings(const std::string& server) {
    Settings settings;
    settings.HostName = "Game Host";
    settings.HostEmail = "host@example.org";
    settings.SmtpServer = server;
    return settings;
}

GameDetails benchGame(const std::string& folder, int players) {
    GameDetails game;
    game.GameName = "Full Game";
    game.GamePath = folder;
    game.HostFileName = "GAME.HST";
    game.GameYear = 2405;
    for (int i = 0; i < players; ++i) {
        const std::string number = std::to_string(i + 1);
        game.rows[static_cast<size_t>(i)] = {1,
                                             "Captain" + number + " Of Many",
                                             "p" + number + "@example.org",
                                             "",
                                             "GAME.M" + number,
                                             true};
    }
    return game;
}

void makeBenchGame(const std::string& folder, int players, size_t bytes) {
    std::map<int, size_t> lengths;
    for (int player = 1; player <= players; ++player) {
        lengths[player] = bytes;
    }
    desk::makeSampleGame(folder, lengths);
    Settings settings = benchSettings("127.0.0.1");
    settings.DefaultGameFile = folder + "GAME.NTP";
    replaceFile(folder + "TURNPOST.INI", printSettings(settings));
    writeGameDetails(settings.DefaultGameFile, benchGame(folder, players),
                     {"Turn <<GY>> of <<GN>>", body});
}

} // namespace turnpost::bench
