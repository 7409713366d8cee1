// The work inside the process: bench_work FOLDER [options of the benchmark library]. A folder in
// memory makes the flush to the disk cost nothing.
#include "BenchGame.h"
#include "compose/MUUEncode.h"
#include "desk/SampleGame.h"
#include "smtp/SendDriver.h"
#include "storage/GameDetailsFile.h"

#include <benchmark/benchmark.h>
#include <iostream>

using namespace turnpost;

namespace {

std::string folder;

void UuencodeInMemory(benchmark::State& state) {
    const std::string bytes = desk::sampleBytes(static_cast<size_t>(state.range()), 1);
    for ([[maybe_unused]] auto _ : state) {
        benchmark::DoNotOptimize(uuencodedBlock("GAME.M1", bytes));
    }
}

// Takes what is sent for the wire and drops it.
class NoNetwork final : public Socket, public SendDisplay, public MessageBox {
  public:
    void setEvents(SocketEvents* newEvents) override { events = newEvents; }
    void Connect(const std::string&, std::uint16_t) override {}
    bool isOpen() const override { return false; }
    std::chrono::steady_clock::duration silence() const override { return {}; }
    void SendData(std::string bytes, Send) override { benchmark::DoNotOptimize(bytes.data()); }
    std::string GetData() override { return "250 OK\r\n"; }
    void Close() override {}
    void CloseWhenSent() override {}
    void setProgress(double) override {}
    void openReport() override { sent = true; }
    void show(const std::string& text) override { std::cerr << text << '\n'; }

    SocketEvents* events = nullptr;
    bool sent = false;
};

// A whole send to one player but for the network: rules, reading, encoding, message.
void MessageFromFileToWire(benchmark::State& state) {
    const GameDetails game = bench::benchGame(folder, 1);
    const MessageTemplate message{"Turn <<GY>> of <<GN>>", bench::body};
    const AttachmentChoices attachments{1, 0, {}};
    const Settings settings = bench::benchSettings("127.0.0.1");
    SendReport report;
    NoNetwork network;
    SendDriver driver({game, message, attachments}, settings, report, network, network, network);
    for ([[maybe_unused]] auto _ : state) {
        network.sent = false;
        driver.butSend_Click();
        while (!network.sent) {
            network.events->DataArrival();
        }
    }
    if (report[0] != "Email sent OK") {
        state.SkipWithError("nothing was sent");
    }
}

void SaveGame(benchmark::State& state) {
    const GameDetails game = bench::benchGame(folder, rowCount);
    for ([[maybe_unused]] auto _ : state) {
        writeGameDetails(folder + "SAVED.NTP", game, {"Turn <<GY>> of <<GN>>", bench::body});
        benchmark::DoNotOptimize(comesBack(game, {"Turn <<GY>> of <<GN>>", bench::body}));
    }
}

void LoadGame(benchmark::State& state) {
    for ([[maybe_unused]] auto _ : state) {
        benchmark::DoNotOptimize(readGameDetails(folder + "GAME.NTP"));
    }
}

BENCHMARK(UuencodeInMemory)->Arg(1 << 10)->Arg(100 << 10)->Arg(10 << 20);
BENCHMARK(MessageFromFileToWire);
BENCHMARK(SaveGame);
BENCHMARK(LoadGame);

} // namespace

int main(int argc, char** argv) {
    folder = argv[1];
    bench::makeBenchGame(folder, rowCount, 100 << 10);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
