#include "platform/Files.h"

#include "fakes/TempFolder.h"
#include "platform/FileError.h"

#include <gtest/gtest.h>

#ifndef _WIN32
#include <sys/stat.h>
#endif

namespace turnpost {

class Files : public testing::Test {
  protected:
    // Also when it hangs, or gives wrong bytes. Another kind is named as what it is.
    void expectNoFile(const std::string& path,
                      const std::string& reason = "No such file or directory") const {
        EXPECT_EQ(findFile(path), std::nullopt);
        try {
            readFile(path);
            ADD_FAILURE() << "read " << path;
        } catch (const FileError& error) {
            EXPECT_EQ(error.path(), path);
            EXPECT_EQ(error.reason(), reason);
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
    EXPECT_EQ(findPath(temp.path("Stars\\Cup")), joinPath(temp.path("Stars"), "Cup"));
    EXPECT_TRUE(findPath(temp.path("stars/cup")).has_value());
    for (const char* name : {"Stars/Cup/CUP.m11", "Stars/CUP.m1", "missing"}) {
        expectNoFile(temp.path(name));
    }
    expectNoFile(temp.path("Stars"), "It is a folder, not a file");
    expectNoFile(temp.path("Stars/Cup/CUP.m1") + '\0' + "x",
                 "A file name cannot hold a NUL character");
    EXPECT_EQ(findPath(""), std::nullopt);
    EXPECT_FALSE(folderHoldsFile(temp.path("STARS"))) << "a folder is no ordinary file";
    EXPECT_FALSE(folderHoldsFile(""));
    EXPECT_TRUE(folderHoldsFile(withSeparator(temp.path("stars/CUP"))));
    EXPECT_FALSE(folderHoldsFile(temp.path("Stars/Cup/CUP.m1")));
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
    temp.makeFolder("Cup");
    for (const char* name : {"\xFF\xFE.M1", "GAME.M1", "game.m1", "\u00C4RGER.M1"}) {
        temp.write(std::string("Cup/") + name, name);
    }
    for (const char* folder : {"Cup/", "cup/"}) {
        EXPECT_EQ(readFile(temp.path(folder) + "game.m1"), "game.m1");
        EXPECT_EQ(findFile(temp.path(folder) + "Game.M1"), temp.path("Cup/GAME.M1"));
        EXPECT_EQ(findFile(temp.path(folder) + "\u00E4rger.m1"), temp.path("Cup/\u00C4RGER.M1"));
    }
}

TEST_F(Files, APipeIsNoFileAndADanglingLinkHidesNoRealOne) {
    ASSERT_EQ(mkfifo(temp.path("PIPE").c_str(), 0600), 0);
    std::filesystem::create_symlink("nowhere", temp.path("GAME.M1"));
    expectNoFile(temp.path("PIPE"), "It is a pipe, not a file");
    expectNoFile("/dev/null", "It is a device, not a file");
    expectNoFile(temp.path("GAME.M1"));
    EXPECT_FALSE(folderHoldsFile(temp.path()));
    temp.write("game.m1", "turn");
    std::filesystem::create_symlink("game.m1", temp.path("GAME.M2"));
    EXPECT_EQ(findFile(temp.path("GAME.M1")), temp.path("game.m1"));
    EXPECT_EQ(readFile(temp.path("GAME.M2")), "turn");
}
#endif

} // namespace turnpost
