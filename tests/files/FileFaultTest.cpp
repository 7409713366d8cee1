#include "fakes/TempFolder.h"
#include "files/FileError.h"

#include <cerrno>
#include <cstdarg>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace turnpost {

namespace {

using Names = std::vector<std::string>;

// The calls that change files, while they are watched. The call with this index fails.
bool watches = false;
size_t faulty = std::string::npos;
Names calls;

template <typename... Values>
long intercepted(const char* name, long number, const Values&... values) {
    if (watches) {
        calls.emplace_back(name);
        if (calls.size() == faulty + 1) {
            errno = EIO;
            return -1;
        }
    }
    return syscall(number, values...);
}

} // namespace

// These take the place of the system's functions.
extern "C" {

int open(const char* path, int flags, ...) {
    va_list more;
    va_start(more, flags);
    const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(more, mode_t) : 0;
    va_end(more);
    const char* name = (flags & O_EXCL) != 0 ? "create" : "open";
    return static_cast<int>(intercepted(name, SYS_openat, AT_FDCWD, path, flags, mode));
}

int fchmod(int file, mode_t mode) noexcept {
    return static_cast<int>(intercepted("fchmod", SYS_fchmod, file, mode));
}

// Writes less than it is asked to, as it may.
ssize_t write(int file, const void* bytes, size_t size) {
    const size_t part = watches ? std::min<size_t>(size, 60) : size;
    return intercepted("write", SYS_write, file, bytes, part);
}

int fsync(int file) {
    return static_cast<int>(intercepted("fsync", SYS_fsync, file));
}

int close(int file) {
    return static_cast<int>(intercepted("close", SYS_close, file));
}

int rename(const char* from, const char* to) noexcept {
    return static_cast<int>(intercepted("rename", SYS_renameat2, AT_FDCWD, from, AT_FDCWD, to, 0));
}
}

TEST(FileFault, FailedSavesLeaveTheOldFileWhole) {
    const TempFolder temp;
    const std::string newBytes(90, 'n');
    const auto saves = [&](unsigned mode) {
        temp.write("A", "old");
        std::filesystem::permissions(temp.path("A"), std::filesystem::perms(mode));
        calls.clear();
        watches = true;
        bool saved = true;
        try {
            replaceFile(temp.path("A"), newBytes);
        } catch (const FileError&) {
            saved = false;
        }
        watches = false;
        return saved;
    };
    const mode_t before = umask(022);
    EXPECT_TRUE(saves(0600));
    // Created, so that no planted link is followed; given its mode before its bytes; flushed before
    // it takes the old file's place, so that a crash at any moment leaves one whole file.
    const Names all = calls;
    EXPECT_EQ(all, Names({"create", "fchmod", "write", "write", "fsync", "close", "rename", "open",
                          "fsync", "close"}));
    for (const unsigned mode : {0600U, 0777U}) {
        for (faulty = 0; faulty < all.size(); ++faulty) {
            SCOPED_TRACE(all[faulty]);
            // Failing to set the mode matters only if others could then read what they could not
            // before.
            const bool due = faulty > 6 || (mode == 0777 && all[faulty] == "fchmod");
            EXPECT_EQ(saves(mode), due);
            EXPECT_EQ(temp.read("A"), due ? newBytes : "old");
            EXPECT_EQ(temp.names(), std::set<std::string>{"A"});
        }
    }
    umask(before);
}

} // namespace turnpost
