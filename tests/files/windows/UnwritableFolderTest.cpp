#include "files/FileError.h"
#include "files/Files.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <windows.h>

namespace turnpost {

// No person may write into this folder, an administrator neither. Wine shows a Linux system as Z:.
TEST(UnwritableFolder, RefusesANewFileWithTheSystemsReason) {
    const std::string linuxFolder = "Z:\\sys\\kernel";
    const std::string folder =
        std::filesystem::exists(linuxFolder) ? linuxFolder : "C:\\System Volume Information";
    const std::string path = folder + "\\GAME.NTP";
    try {
        replaceFile(path, "\"game\"");
        ADD_FAILURE() << "written: " << path;
    } catch (const FileError& error) {
        EXPECT_EQ(error.path(), path);
        EXPECT_EQ(error.reason(), systemReason({ERROR_ACCESS_DENIED, std::system_category()}));
    }
}

} // namespace turnpost
