#include "fakes/TempFolder.h"
#include "platform/FileError.h"

#include <gtest/gtest.h>

#ifndef _WIN32
#include "support/Unprivileged.h"
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
            replaceFile(temp.path(name), bytes);
        } catch (const FileError& error) {
            EXPECT_EQ(error.path(), temp.path(name));
            return error.reason();
        }
        return "";
    }

    TempFolder temp;
};

TEST_F(FileReplace, ReplacesEveryByteAndNoFolderOrFileOfAnotherName) {
    temp.makeFolder("F");
    temp.write("F/kept", "old");
    temp.write("x", "old");
    EXPECT_EQ(failure("F"), "It is a folder, not a file");
    EXPECT_EQ(failure({"x\0.NTP", 6}), "A file name cannot hold a NUL character");
    EXPECT_NE(failure("missing/A"), "");
    EXPECT_EQ(temp.read("F/kept") + temp.read("x"), "oldold");
    for (const size_t length : {300000U, 5U}) {
        const std::string bytes = "\"a\"\r\n\xFF\x1A" + std::string(length, '\0');
        EXPECT_EQ(failure("A", bytes), "");
        EXPECT_EQ(temp.read("A"), bytes);
    }
    EXPECT_EQ(temp.names(), Names({"A", "F", "x"}));
}

TEST_F(FileReplace, AWriteProtectedFileOrFolderIsNotReplacedBehindItsOwnersBack) {
    const fs::path file = toNativePath(temp.path("A"));
    temp.write("A", "old");
    fs::permissions(file, fs::perms::owner_read);
#ifdef _WIN32
    EXPECT_NE(failure("A"), "");
    fs::permissions(file, fs::perms::all);
#else
    fs::permissions(temp.path(), fs::perms::all);
    const auto refusal = [this] {
        const Unprivileged person;
        return failure("A");
    };
    EXPECT_EQ(refusal(), "Permission denied");
    fs::permissions(file, fs::perms::all);
    fs::permissions(temp.path(), fs::perms(0555));
    EXPECT_EQ(refusal(), "Permission denied");
#endif
    EXPECT_EQ(temp.read("A"), "old");
    EXPECT_EQ(temp.names(), Names({"A"}));
}

#ifndef _WIN32
TEST_F(FileReplace, OwnerAndPermissionsStayAndThoseOfANewFileFollowTheUmask) {
    struct stat now {};
    const auto look = [&] { return stat(temp.path("A").c_str(), &now) == 0; };
    const mode_t before = umask(0027);
    EXPECT_EQ(failure("A"), "");
    umask(before);
    ASSERT_TRUE(look());
    EXPECT_EQ(now.st_mode & 07777U, 0640U);
    // Only root can tell who else had the file.
    const uid_t owner = geteuid() == 0 ? 65534 : now.st_uid;
    ASSERT_EQ(chown(temp.path("A").c_str(), owner, now.st_gid), 0);
    for (const mode_t kept : {0600U, 0666U, 0755U}) {
        ASSERT_EQ(chmod(temp.path("A").c_str(), kept), 0);
        EXPECT_EQ(failure("A"), "");
        ASSERT_TRUE(look());
        EXPECT_EQ(now.st_mode & 07777U, kept);
        EXPECT_EQ(now.st_uid, owner);
    }
}

TEST_F(FileReplace, ALinkStaysALinkAndItsTargetIsReplacedOrMade) {
    temp.makeFolder("real");
    fs::create_symlink("real/file", temp.path("second"));
    fs::create_symlink(temp.path("second"), temp.path("first"));
    for (const char* content : {"made", "replaced"}) {
        EXPECT_EQ(failure("first", content), "");
        EXPECT_EQ(temp.read("real/file"), content);
    }
    EXPECT_EQ(failure("REAL\\new"), "");
    EXPECT_EQ(temp.read("real/new"), "new");
    EXPECT_EQ(fs::read_symlink(temp.path("first")), temp.path("second"));
    EXPECT_EQ(fs::read_symlink(temp.path("second")), "real/file");
    EXPECT_EQ(temp.names(), Names({"first", "real", "second"}));
}
#endif

} // namespace turnpost
