#include "fakes/TempFolder.h"
#include "platform/FileError.h"
#include "platform/Messages.h"

#include <gtest/gtest.h>

#ifndef _WIN32
#include <sys/stat.h>
#include <unistd.h>
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

TEST_F(FileReplace, ReplacesEveryByteAndLeavesNoNeighbour) {
    for (const size_t length : {300000U, 5U}) {
        const std::string bytes = "\"a\"\r\n\xFF\x1A" + std::string(length, '\0');
        EXPECT_EQ(failure("A", bytes), "");
        EXPECT_EQ(temp.read("A"), bytes);
    }
    EXPECT_EQ(temp.names(), Names({"A"}));
}

TEST_F(FileReplace, AMissingFolderIsNotMadeAndNoFolderOrFileOfAnotherNameIsReplaced) {
    temp.makeFolder("A");
    temp.write("A/kept", "old");
    temp.write("x", "old");
    EXPECT_EQ(failure("A"), messages::isFolder());
    EXPECT_EQ(failure({"x\0.NTP", 6}), messages::nulInPath());
    EXPECT_NE(failure("missing/A"), "");
    EXPECT_EQ(temp.read("A/kept") + temp.read("x"), "oldold");
    EXPECT_EQ(temp.names(), Names({"A", "x"}));
}

TEST_F(FileReplace, AWriteProtectedFileOrFolderIsNotReplacedBehindItsOwnersBack) {
    temp.write("A", "old");
    const auto protect = [this](const std::string& name, fs::perms perms) {
        fs::permissions(toNativePath(name), perms);
    };
    protect(temp.path("A"), fs::perms::owner_read);
#ifdef _WIN32
    EXPECT_NE(failure("A"), "");
#else
    protect(temp.path(), fs::perms::all);
    // Root may write everything.
    const bool root = geteuid() == 0 && seteuid(65534) == 0;
    EXPECT_NE(failure("A"), "");
    EXPECT_EQ(root ? seteuid(0) : 0, 0);
    protect(temp.path("A"), fs::perms::all);
    protect(temp.path(), fs::perms::owner_read | fs::perms::owner_exec);
    EXPECT_EQ(root ? seteuid(65534) : 0, 0);
    EXPECT_NE(failure("A"), "");
    EXPECT_EQ(root ? seteuid(0) : 0, 0);
    protect(temp.path(), fs::perms::owner_all);
#endif
    EXPECT_EQ(temp.read("A"), "old");
    EXPECT_EQ(temp.names(), Names({"A"}));
}

#ifndef _WIN32
TEST_F(FileReplace, PermissionsStayAndThoseOfANewFileFollowTheUmask) {
    const auto mode = [this] {
        return static_cast<unsigned>(fs::status(temp.path("A")).permissions());
    };
    const mode_t before = umask(0027);
    EXPECT_EQ(failure("A"), "");
    umask(before);
    EXPECT_EQ(mode(), 0640U);
    for (const mode_t kept : {0600U, 0666U, 0755U}) {
        ASSERT_EQ(chmod(temp.path("A").c_str(), kept), 0);
        EXPECT_EQ(failure("A"), "");
        EXPECT_EQ(mode(), kept);
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
    EXPECT_EQ(fs::read_symlink(temp.path("first")), temp.path("second"));
    EXPECT_EQ(fs::read_symlink(temp.path("second")), "real/file");
    EXPECT_EQ(temp.names(), Names({"first", "real", "second"}));
}
#endif

} // namespace turnpost
