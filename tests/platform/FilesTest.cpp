#include "platform/Files.h"

#include "fakes/TempFolder.h"
#include "platform/FileError.h"
#include "platform/Messages.h"

#include <gtest/gtest.h>

#ifndef _WIN32
#include <sys/stat.h>
#endif

namespace turnpost {

class Files : public testing::Test {
  protected:
    // Also when it hangs, or gives wrong bytes. Another kind is named as what it is.
    void expectNoFile(const std::string& path, const std::string& kind = "No such file") const {
        EXPECT_EQ(findFile(path), std::nullopt);
        try {
            readFile(path);
            ADD_FAILURE() << "read " << path;
        } catch (const FileError& error) {
            EXPECT_EQ(error.path(), path);
            EXPECT_TRUE(error.reason().starts_with(kind)) << error.reason();
        }
    }

    TempFolder temp;
};

TEST_F(Files, AreFoundWhateverTheCaseAndTheSeparatorsOfThePath) {
    temp.makeFolder("Stars/Cup");
    temp.write("Stars/Cup/CUP.m1", "turn");
    for (const char* name : {"Stars/Cup/CUP.m1", "stars/CUP/cup.M1", "STARS\\cup\\CUP.M1"}) {
        EXPECT_EQ(readFile(temp.path(name)), "turn") << name;
    }
    EXPECT_TRUE(findPath(temp.path("stars/cup")).has_value());
    for (const char* name : {"Stars/Cup/CUP.m11", "Stars/CUP.m1", "missing"}) {
        expectNoFile(temp.path(name));
    }
    expectNoFile(temp.path("Stars"), messages::isFolder());
    expectNoFile(temp.path("Stars/Cup/CUP.m1") + '\0' + "x", messages::nulInPath());
    EXPECT_EQ(findPath(""), std::nullopt);
}

TEST_F(Files, AFolderWithoutAnyOrdinaryFileHoldsNone) {
    temp.makeFolder("sub");
    EXPECT_FALSE(folderHoldsFile(temp.path()));
    EXPECT_FALSE(folderHoldsFile(""));
    temp.write("A", "");
    EXPECT_TRUE(folderHoldsFile(withSeparator(temp.path())));
    EXPECT_FALSE(folderHoldsFile(temp.path("A")));
}

TEST_F(Files, AreReadWholeWithEveryByteOrCutAtTheLimit) {
    std::string bytes;
    for (int i = 0; i < 100000; ++i) {
        bytes += static_cast<char>(i * 7 / 3);
    }
    temp.write("A", bytes);
    for (const size_t limit : {std::string::npos, size_t{0}, size_t{14}, size_t{20000}}) {
        EXPECT_EQ(readFile(temp.path("A"), limit), bytes.substr(0, limit));
    }
    std::filesystem::resize_file(toNativePath(temp.path("A")), mostFileBytes + 1);
    EXPECT_THROW(readFile(temp.path("A")), FileError);
    EXPECT_EQ(readFile(temp.path("A"), 14), bytes.substr(0, 14));
}

#ifndef _WIN32
TEST_F(Files, ExactNamesGoFirstAndThoseOfNoEncodingDoNotStopTheSearch) {
    for (const char* name : {"\xFF\xFE.M1", "GAME.M1", "game.m1", "\u00C4RGER.M1"}) {
        temp.write(name, name);
    }
    EXPECT_EQ(readFile(temp.path("game.m1")), "game.m1");
    EXPECT_EQ(findFile(temp.path("Game.M1")), temp.path("GAME.M1"));
    EXPECT_EQ(findFile(temp.path("\u00E4rger.m1")), temp.path("\u00C4RGER.M1"));
}

TEST_F(Files, APipeIsNoFileAndADanglingLinkHidesNoRealOne) {
    ASSERT_EQ(mkfifo(temp.path("PIPE").c_str(), 0600), 0);
    std::filesystem::create_symlink("nowhere", temp.path("GAME.M1"));
    expectNoFile(temp.path("PIPE"), messages::isPipe());
    expectNoFile("/dev/null", messages::isDevice());
    expectNoFile(temp.path("GAME.M1"));
    EXPECT_FALSE(folderHoldsFile(temp.path()));
    temp.write("game.m1", "turn");
    std::filesystem::create_symlink("game.m1", temp.path("GAME.M2"));
    EXPECT_EQ(findFile(temp.path("GAME.M1")), temp.path("game.m1"));
    EXPECT_EQ(readFile(temp.path("GAME.M2")), "turn");
}
#endif

} // namespace turnpost
