#include "automation/SampleGame.h"

#include <filesystem>
#include <fstream>

namespace turnpost::automation {

namespace {

void write(const std::filesystem::path& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

} // namespace

std::string sampleBytes(size_t length, int player) {
    std::string bytes(length, '\0');
    for (size_t i = 0; i < length; ++i) {
        bytes[i] = static_cast<char>((i + static_cast<size_t>(player) * 31 + i / 256) % 256);
    }
    return bytes;
}

std::map<int, std::string> makeSampleGame(const std::string& folder,
                                          const std::map<int, size_t>& lengths) {
    const std::filesystem::path path(folder);
    std::filesystem::create_directories(path);
    write(path / "GAME.HST", std::string("J3J3host....", 12) + '\x05' + '\0' + "rest");
    std::map<int, std::string> files;
    for (const auto& [player, length] : lengths) {
        files[player] = sampleBytes(length, player);
        write(path / ("GAME.M" + std::to_string(player)), files[player]);
    }
    return files;
}

} // namespace turnpost::automation
