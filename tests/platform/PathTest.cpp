#include "platform/Path.h"

#include <gtest/gtest.h>
#include <vector>

namespace turnpost {

TEST(Path, IsCutAtTheLastSeparatorOfEitherKindAndARootKeepsIts) {
    const std::vector<std::pair<std::string, std::string>> foldersAndNames = {
        {"C:\\G", "\\A.M1"}, {"C:\\G", "/A.M1"}, {"/g", "\\A.M1"}, {"C:\\", "A.M1"},
        {"C:/", "A.M1"},     {"/", "A.M1"},      {"\\", "A.M1"},   {"ab", "\\A.M1"},
        {"", "A.M1"},        {"/g", "/"},        {"", ""}};
    for (const auto& [folder, rest] : foldersAndNames) {
        EXPECT_EQ(folderOfPath(folder + rest), folder);
        EXPECT_EQ(nameOfPath(folder + rest), rest.substr(rest.find_last_of("/\\") + 1));
    }
}

TEST(Path, JoiningNeitherDoublesNorForgetsTheSeparator) {
    EXPECT_EQ(joinPath("C:\\", "A.M1"), "C:\\A.M1");
    EXPECT_EQ(joinPath("g", "A.M1"), std::string("g") + pathSeparator + "A.M1");
    EXPECT_EQ(joinPath("", "A.M1"), "A.M1");
}

} // namespace turnpost
