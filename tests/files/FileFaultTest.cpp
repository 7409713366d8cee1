#include "fakes/TempFolder.h"
#include "files/FileError.h"

#include <cerrno>
#include <cstdarg>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace turnpost {

namespace {

using std::filesystem::perms;
using Names = std::vector<std::string>;

constexpr int killed = 9;

// The calls that change files, while they are watched. The call with this index fails, or ends the
// process.
bool watches = false;
bool kills = false;
size_t faulty = std::string::npos;
Names calls;

template <typename... Values>
long intercepted(const char* name, long number, const Values&... values) {
    if (watches) {
        calls.emplace_back(name);
        if (calls.size() == faulty + 1) {
            if (kills) {
                _exit(killed);
            }
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

TEST(FileFault, FailedOrKilledSavesLeaveOneWholeFile) {
    const TempFolder temp;
    const std::string oldBytes = "\"old\"\r\n";
    const std::string newBytes = "\"" + std::string(90, 'n') + "\"\r\n";
    const auto save = [&] { replaceFile(temp.path("A"), newBytes); };
    const auto restore = [&](unsigned mode) {
        temp.write("A", oldBytes);
        std::filesystem::permissions(temp.path("A"), perms(mode));
    };
    const mode_t before = umask(022);
    restore(0600);
    watches = true;
    save();
    watches = false;
    // Created, so that no planted link is followed; file and folder are flushed.
    const Names all = std::exchange(calls, {});
    EXPECT_EQ(all, Names({"create", "fchmod", "write", "write", "fsync", "close", "rename", "open",
                          "fsync", "close"}));
    for (const auto& [kill, mode] : {std::pair(false, 0600U), {false, 0777U}, {true, 0600U}}) {
        kills = kill;
        for (faulty = 0; faulty < all.size(); ++faulty) {
            SCOPED_TRACE(all[faulty]);
            restore(mode);
            const pid_t child = fork();
            if (child == 0) {
                watches = true;
                try {
                    save();
                } catch (const FileError&) {
                    _exit(1);
                }
                _exit(0);
            }
            int status = 0;
            waitpid(child, &status, 0);
            // Failing to set the mode matters only if others could then read what they could not
            // before.
            const bool saved = faulty > 6 || (mode == 0777 && all[faulty] == "fchmod");
            EXPECT_EQ(WEXITSTATUS(status), kills ? killed : saved ? 0 : 1);
            EXPECT_EQ(temp.read("A"), saved ? newBytes : oldBytes);
            for (const std::string& name : temp.names()) {
                const perms others =
                    perms::others_read & std::filesystem::status(temp.path(name)).permissions();
                EXPECT_TRUE(kills || name == "A");
                EXPECT_TRUE(mode != 0600 || others == perms::none || temp.read(name).empty());
            }
        }
    }
    save();
    umask(before);
}

} // namespace turnpost
