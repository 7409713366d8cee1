#include "fakes/TempFolder.h"

#include <cstdint>
#include <gtest/gtest.h>

// The functions that the fuzzing engine calls, one per target.
extern "C" {
int Conversation(const std::uint8_t* data, size_t size);
int MessageAssembly(const std::uint8_t* data, size_t size);
int Readers(const std::uint8_t* data, size_t size);
}

namespace turnpost {

namespace {

using Texts = std::vector<std::string>;

// A seed in which up to four pieces are replaced by pieces of other seeds or by a byte.
std::string mixed(const Texts& seeds, std::mt19937& random) {
    std::string input = seeds[random() % seeds.size()];
    for (auto count = 1 + random() % 4; count > 0; --count) {
        const std::string& other = seeds[random() % seeds.size()];
        const std::string piece = random() % 3 == 0
                                      ? std::string(1, static_cast<char>(random()))
                                      : other.substr(random() % (other.size() + 1), random() % 24);
        input.replace(random() % (input.size() + 1), random() % 8, piece);
    }
    return input;
}

} // namespace

// The seeds, then 2,000 mixtures of them, the same at every run.
TEST(Properties, HoldForSeedsAndTheirMixtures) {
    for (const auto& [target, property] : {std::pair("Readers", &Readers),
                                           {"MessageAssembly", &MessageAssembly},
                                           {"Conversation", &Conversation}}) {
        const std::filesystem::directory_iterator folder(TURNPOST_CORPUS + std::string(target));
        Texts seeds;
        for (const auto& path : std::set<std::filesystem::path>(begin(folder), end(folder))) {
            seeds.push_back(readFile(fromNativePath(path)));
        }
        std::mt19937 random(1);
        for (size_t i = 0; i < seeds.size() + 2000; ++i) {
            const std::string input = i < seeds.size() ? seeds[i] : mixed(seeds, random);
            try {
                property(reinterpret_cast<const std::uint8_t*>(input.data()), input.size());
            } catch (const std::logic_error& broken) {
                FAIL() << broken.what() << ": " << testing::PrintToString(input);
            }
        }
    }
}

} // namespace turnpost
