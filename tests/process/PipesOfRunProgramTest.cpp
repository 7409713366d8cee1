#include "process/RunProgram.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <set>
#include <sstream>

namespace turnpost {

TEST(Pipes, AreHandedToNoProgramThatIsStarted) {
    std::set<std::string> known = {"0", "1", "2"};
    for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) {
        known.insert(entry.path().filename());
    }
    std::istringstream its(
        runProgram("/bin/sh", {"-c", "cd /proc/$$/fd; echo *"}, "", std::chrono::seconds(20))
            .outputText);
    std::set<std::string> handed{std::istream_iterator<std::string>(its), {}};
    EXPECT_TRUE(handed.contains("2"));
    std::erase_if(handed, [&](const std::string& number) { return known.contains(number); });
    EXPECT_EQ(handed, std::set<std::string>());
}

} // namespace turnpost
