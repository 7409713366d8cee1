// Measures the steps of a turn of 16 players with files of 100 KiB, compares each with something
// that does the same, and prints a table: bench FOLDER TURNPOST BARE_WINDOW. The folder is empty,
// and its name ends in a separator; the other two are programs.
#include "Sending.h"
#include "Sink.h"
#include "Start.h"
#include "automation/SampleGame.h"
#include "compose/MUUEncode.h"
#include "files/Files.h"
#include "storage/GameDetailsFile.h"
#include "storage/SettingsFile.h"

#include <QByteArray>
#include <QCoreApplication>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <iostream>

using namespace turnpost;
using namespace turnpost::bench;

namespace {

constexpr int rounds = 41;
constexpr size_t turnFileBytes = 100 << 10;

using Timed = std::function<double()>; // returns milliseconds

Timed timed(const std::function<void()>& work) {
    return [work] {
        const auto start = std::chrono::steady_clock::now();
        work();
        const std::chrono::duration<double, std::milli> taken =
            std::chrono::steady_clock::now() - start;
        return taken.count();
    };
}

double median(std::vector<double> times) {
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

// The two take turns, so that both run under the same load of the machine.
void compare(const char* work, const Timed& ours, const char* other, const Timed& theirs) {
    std::vector<double> ourTimes;
    std::vector<double> theirTimes;
    for (int round = 0; round < rounds; ++round) {
        ourTimes.push_back(ours());
        theirTimes.push_back(theirs());
    }
    std::printf("| %s | %.2f ms | %s: %.2f ms | %.2f |\n", work, median(ourTimes), other,
                median(theirTimes), median(ourTimes) / median(theirTimes));
}

GameDetails makeGame(const std::string& folder) {
    std::map<int, size_t> lengths;
    GameDetails game;
    game.GameName = "Full Game";
    game.GamePath = folder;
    game.HostFileName = "GAME.HST";
    for (int player = 1; player <= rowCount; ++player) {
        const std::string number = std::to_string(player);
        game.rows[static_cast<size_t>(player - 1)] = {.IncludePlayer = 1,
                                                      .PlayerName = "Captain " + number,
                                                      .PlayerEmail = "p" + number + "@example.org",
                                                      .AltEmail = "",
                                                      .GameFile = "GAME.M" + number,
                                                      .Shown = true};
        lengths[player] = turnFileBytes;
    }
    automation::makeSampleGame(folder, lengths);
    return game;
}

// The program, which loads the game when it starts in its folder.
std::string installed(const std::string& program, const GameDetails& game) {
    Settings settings;
    settings.DefaultGameFile = game.GamePath + "GAME.NTP";
    replaceFile(game.GamePath + "TURNPOST.INI", printSettings(settings));
    writeGameDetails(settings.DefaultGameFile, game, {"Turn", "Hello"});
    std::filesystem::copy_file(program, game.GamePath + "turnpost");
    return game.GamePath + "turnpost";
}

void measure(const std::string& folder, const std::string& program, const std::string& bareWindow) {
    const GameDetails game = makeGame(folder);
    const std::string bytes = automation::sampleBytes(turnFileBytes, 1);
    const auto forEachFile = [&game](const std::function<void(const PlayerSlot&)>& work) {
        return timed([&game, work] { std::for_each(game.rows.begin(), game.rows.end(), work); });
    };
    const Timed encoding =
        forEachFile([&bytes](const PlayerSlot& player) { uuencodedBlock(player.GameFile, bytes); });
    const Timed base64 = forEachFile([&bytes](const PlayerSlot&) {
        QByteArray::fromRawData(bytes.data(), turnFileBytes).toBase64();
    });
    const Timed encodingFiles =
        forEachFile([&folder](const PlayerSlot& player) { UUEncode(folder + player.GameFile); });
    const std::uint16_t sink = startSink();
    const std::string turnpost = installed(program, game);
    std::puts(
        "| 16 files of 100 KiB | Nimbus Turnpost | compared with | ratio |\n|---|---|---|---|");
    compare("encoding, in memory", encoding, "base64 of the toolkit", base64);
    compare("from file to wire", timed([&] { sendToNobody(game); }), "reading and encoding only",
            encodingFiles);
    compare("sending", timed([&] { sendTurnpost(game, sink); }), "blocking client",
            timed([&] { sendBlocking(game, sink); }));
    const Timed start = [&] { return startTime(turnpost); };
    const Timed bareStart = [&] { return startTime(bareWindow); };
    compare("start to first window", start, "bare window", bareStart);
}

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    const std::vector<std::string> arguments(argv, argv + argc);
    try {
        measure(arguments.at(1), arguments.at(2), arguments.at(3));
    } catch (const std::exception& failure) {
        std::cerr << "bench: " << failure.what() << '\n';
        return 1;
    }
}
