#include "fakes/TempFolder.h"
#include "files/FileError.h"
#include "text/CodePage.h"
#include "text/Path.h"

#include <gtest/gtest.h>

#ifdef _WIN32
#include "files/FileHandle.h"
#else
#include <sys/stat.h>
#endif

namespace turnpost {

namespace fs = std::filesystem;

class FileReplace : public testing::Test {
  protected:
    using Names = std::set<std::string>;

    // Why the file could not be replaced; empty when it was.
    std::string failure(const std::string& name, const std::string& bytes = "new") const {
        try {
            replaceFile(temp.path(name), bytes, limits);
        } catch (const FileError& error) {
            EXPECT_EQ(error.path(), temp.path(name));
            EXPECT_TRUE(isUtf8(error.reason())) << error.reason();
            return error.reason();
        }
        return "";
    }

    RetryLimits limits{std::chrono::milliseconds(0), nullptr};
    TempFolder temp;
};

TEST_F(FileReplace, WritesEveryByteAndOnlyToTheNamedFile) {
    temp.makeFolder("F");
    temp.write("F/kept", "old");
    temp.write("x", "old");
    EXPECT_EQ(failure("F"), "It is a folder, not a file");
    EXPECT_EQ(failure({"x\0.NTP", 6}), "A file name cannot hold a NUL character");
    EXPECT_NE(failure("missing/A"), "");
    temp.write("A.tmp", "old");
    EXPECT_EQ(temp.read("F/kept") + temp.read("x"), "oldold");
    for (const size_t length : {300000U, 5U}) {
        const std::string bytes = "\"a\"\r\n\xFF\x1A" + std::string(length, '\0');
        EXPECT_EQ(failure("A", bytes), "");
        EXPECT_EQ(temp.read("A"), bytes);
    }
    EXPECT_EQ(temp.names(), Names({"A", "A.tmp", "F", "x"}));
}

#ifdef _WIN32
TEST_F(FileReplace, KeepsAttributesAndWaitsForOtherPrograms) {
    const std::wstring file = toNativePath(temp.path("A")).wstring();
    const DWORD marks = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;
    temp.write("A", "old");
    SetFileAttributesW(file.c_str(), marks);
    FileHandle held(CreateFileW(file.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                                0, nullptr));
    EXPECT_EQ(failure("A"), systemReason({ERROR_SHARING_VIOLATION, std::system_category()}));
    EXPECT_EQ(temp.read("A"), "old");
    EXPECT_EQ(temp.names(), Names({"A"}));
    // The file is released only after the save has found it in use.
    limits = {RetryLimits().timeout, [&held] { held.close(); }};
    EXPECT_EQ(failure("A"), "");
    EXPECT_EQ(temp.read("A"), "new");
    EXPECT_EQ(GetFileAttributesW(file.c_str()) & marks, marks);
    fs::permissions(file, fs::perms::owner_read);
    EXPECT_NE(failure("A", "later"), "");
    fs::permissions(file, fs::perms::all);
    EXPECT_EQ(temp.read("A"), "new");
}
#else
TEST_F(FileReplace, LinksStayAndTheirTargetsAreReplaced) {
    temp.makeFolder("real");
    fs::create_symlink("real/made", temp.path("second"));
    fs::create_symlink(temp.path("second"), temp.path("first"));
    for (const char* bytes : {"made", "replaced"}) {
        EXPECT_EQ(failure("first", bytes) + failure("REAL\\new", bytes), "");
        EXPECT_EQ(temp.read("real/made"), bytes);
        EXPECT_EQ(temp.read("real/new"), bytes);
        EXPECT_TRUE(fs::is_symlink(temp.path("first")) && fs::is_symlink(temp.path("second")));
    }
}

TEST_F(FileReplace, KeepsOwnerAndPermissions) {
    const std::string path = temp.path("A");
    const auto saved = [&] {
        EXPECT_EQ(failure("A"), "");
        struct stat now {};
        EXPECT_EQ(stat(path.c_str(), &now), 0);
        return std::pair(now.st_uid, now.st_mode & 07777U);
    };
    const mode_t before = umask(0027);
    EXPECT_EQ(saved(), std::pair(geteuid(), 0640U));
    umask(before);
    // Only root can give the file another owner.
    const uid_t owner = geteuid() == 0 ? 65534 : geteuid();
    for (const mode_t mode : {0600U, 0666U, 0755U}) {
        ASSERT_EQ(chown(path.c_str(), owner, getegid()) | chmod(path.c_str(), mode), 0);
        EXPECT_EQ(saved(), std::pair(owner, mode));
    }
}
#endif

} // namespace turnpost
