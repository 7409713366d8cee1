#include "files/Files.h"

#include "fakes/TempFolder.h"
#include "files/FileError.h"
#include "files/Folders.h"
#include "support/PutBack.h"

#include <gtest/gtest.h>

#ifdef _WIN32
#include <windows.h>
#else
#include <sys/stat.h>
#endif

namespace turnpost {

class Files : public testing::Test {
  protected:
    // Expects that there is no ordinary file to find or to read, and this reason.
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

TEST_F(Files, CaseAndSeparatorsOfPathsDoNotMatter) {
    temp.makeFolder("\u0416\u00FC/Cup");
    temp.write("\u0416\u00FC/Cup/CUP.m1", "turn");
    for (const char* name :
         {"\u0416\u00FC/Cup/CUP.m1", "\u0416\u00FC/CUP/cup.M1", "\u0416\u00DC\\cup\\CUP.M1"}) {
        EXPECT_EQ(readFile(temp.path(name)), "turn") << name;
    }
    EXPECT_EQ(findPath(temp.path("\u0416\u00FC\\Cup")), joinPath(temp.path("\u0416\u00FC"), "Cup"));
    EXPECT_TRUE(findPath(temp.path("\u0416\u00DC/cup")).has_value());
    for (const char* name : {"\u0416\u00FC/Cup/CUP.m11", "\u0416\u00FC/CUP.m1", "missing"}) {
        expectNoFile(temp.path(name));
    }
    expectNoFile(temp.path("\u0416\u00FC"), "It is a folder, not a file");
    expectNoFile(temp.path("\u0416\u00FC/Cup/CUP.m1") + '\0' + "x",
                 "A file name cannot hold a NUL character");
    EXPECT_EQ(findPath(""), std::nullopt);
    EXPECT_FALSE(folderHoldsFile(temp.path("\u0416\u00DC"))) << "a folder is no ordinary file";
    EXPECT_FALSE(folderHoldsFile(""));
    EXPECT_TRUE(folderHoldsFile(withSeparator(temp.path("\u0416\u00FC/CUP"))));
    EXPECT_FALSE(folderHoldsFile(temp.path("\u0416\u00FC/Cup/CUP.m1")));
}

TEST_F(Files, ReadsEveryByteUpToTheLimit) {
    const std::string bytes = "\xFF\r\n\x1A" + std::string(100000, '\0') + "end";
    temp.write("A", bytes);
    for (const size_t limit : {std::string::npos, size_t{0}, size_t{14}, size_t{20000}}) {
        EXPECT_EQ(readFile(temp.path("A"), limit), bytes.substr(0, limit));
    }
    std::filesystem::resize_file(toNativePath(temp.path("A")), maxFileBytes + 1);
    EXPECT_THROW(readFile(temp.path("A")), FileError);
    EXPECT_EQ(readFile(temp.path("A"), 14), bytes.substr(0, 14));
}

TEST_F(Files, PathsOver260CharactersWork) {
    const std::string deep = std::string(100, 'a') + "/" + std::string(100, 'b');
    temp.makeFolder(deep);
    const std::string path = temp.path(deep + "/" + std::string(100, 'c') + ".NTP");
    replaceFile(path, "first");
    replaceFile(path, "second");
    EXPECT_EQ(readFile(findFile(path).value()), "second");
    EXPECT_TRUE(folderHoldsFile(temp.path(deep)));
}

#ifdef _WIN32
TEST_F(Files, LongPathsGetThePrefixForTheSystemOnly) {
    const std::string name(250, 'n');
    const std::wstring wide(250, L'n');
    EXPECT_EQ(toNativePath("C:/G/../" + name), L"\\\\?\\C:\\" + wide);
    EXPECT_EQ(toNativePath("//server/share/" + name), L"\\\\?\\UNC\\server\\share\\" + wide);
    EXPECT_EQ(fromNativePath(L"\\\\?\\C:\\" + wide), "C:\\" + name);
    EXPECT_EQ(fromNativePath(L"\\\\?\\UNC\\server\\share\\" + wide), "\\\\server\\share\\" + name);
    EXPECT_EQ(toNativePath("C:\\G"), L"C:\\G");
}

TEST_F(Files, ConfigurationFolderIsUnderAppData) {
    const PutBack before("APPDATA");
    for (const auto& [applications, folder] :
         {std::pair(L"C:\\\u0416", "C:\\\u0416\\Nimbus Turnpost"), {L"relative", ""}, {L"", ""}}) {
        SetEnvironmentVariableW(L"APPDATA", applications);
        EXPECT_EQ(configurationFolder(), folder);
    }
}
#else
TEST_F(Files, ConfigurationFolderIsNeverRelative) {
    const PutBack home("HOME");
    const PutBack configuration("XDG_CONFIG_HOME");
    setenv("HOME", "/home/host", 1);
    for (const auto& [configured, folder] : {std::pair("/cfg", "/cfg/nimbus-turnpost"),
                                             {"", "/home/host/.config/nimbus-turnpost"},
                                             {"relative", "/home/host/.config/nimbus-turnpost"}}) {
        setenv("XDG_CONFIG_HOME", configured, 1);
        EXPECT_EQ(configurationFolder(), folder);
    }
}

TEST_F(Files, ExactNamesWinAndUndecodableOnesAreSkipped) {
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

TEST_F(Files, PipesAreRefusedAndDanglingLinksSkipped) {
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
