#include "Property.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <random>
#include <set>

// What the fuzzing engine calls, one a target.
extern "C" {
int Conversation(const std::uint8_t* data, size_t size);
int MessageAssembly(const std::uint8_t* data, size_t size);
int Readers(const std::uint8_t* data, size_t size);
}

namespace turnpost {

namespace {

using Texts = std::vector<std::string>;

// A seed with up to four pieces replaced by pieces of others or by a byte.
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

// The seeds, then 2,000 inputs that are put together of them, the same at every run.
void expectToHold(const std::string& target, int (*property)(const std::uint8_t*, size_t)) {
    const std::filesystem::directory_iterator folder(TURNPOST_CORPUS "/" + target);
    Texts inputs;
    for (const auto& path : std::set<std::filesystem::path>(begin(folder), end(folder))) {
        std::ifstream file(path, std::ios::binary);
        inputs.emplace_back(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
    }
    ASSERT_FALSE(inputs.empty());
    const Texts seeds = inputs;
    std::mt19937 random(1);
    for (int i = 0; i < 2000; ++i) {
        inputs.push_back(mixed(seeds, random));
    }
    for (const std::string& input : inputs) {
        try {
            property(reinterpret_cast<const std::uint8_t*>(input.data()), input.size());
        } catch (const std::logic_error& broken) {
            FAIL() << broken.what() << ": " << testing::PrintToString(input);
        }
    }
}

} // namespace

TEST(Properties, OfReadersAndWritersHoldForAnyBytes) {
    expectToHold("Readers", Readers);
}

TEST(Properties, OfAMessageHoldForAnyTextsAndFiles) {
    expectToHold("MessageAssembly", MessageAssembly);
}

TEST(Properties, OfASendHoldForAnyRepliesInAnyPieces) {
    expectToHold("Conversation", Conversation);
}

} // namespace turnpost
