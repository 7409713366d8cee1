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

const std::string oldBytes = "\"old\"\r\n";
const std::string newBytes = "\"" + std::string(90, 'n') + "\"\r\n";
constexpr int killed = 9;

// The calls of the save that change files, and how many go well before one fails or ends the
// process.
bool watches = false;
bool kills = false;
size_t goodCalls = 0;
Names calls;

template <typename... Values>
long intercepted(const char* name, long number, const Values&... values) {
    if (watches) {
        calls.emplace_back(name);
        if (calls.size() > goodCalls) {
            if (kills) {
                _exit(killed);
            }
            goodCalls = std::string::npos;
            errno = EIO;
            return -1;
        }
    }
    return syscall(number, values...);
}

// Why the save was refused; empty when it was not.
std::string failure(const std::string& path, size_t callsBefore) {
    calls.clear();
    goodCalls = callsBefore;
    watches = true;
    std::string reason;
    try {
        replaceFile(path, newBytes);
    } catch (const FileError& error) {
        reason = error.reason();
    }
    watches = false;
    return reason;
}

} // namespace

// In place of the system's functions.
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
    return intercepted("write", SYS_write, file, bytes,
                       watches ? std::min<size_t>(size, 60) : size);
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

class FileFault : public testing::Test {
  protected:
    FileFault() { umask(022); }
    ~FileFault() override { umask(before); }

    void restore(unsigned mode) const {
        temp.write("A", oldBytes);
        std::filesystem::permissions(path, perms(mode));
    }

    const mode_t before = umask(0);
    TempFolder temp;
    const std::string path = temp.path("A");
};

TEST_F(FileFault, FailedSystemCallsLeaveTheOldFileWhole) {
    restore(0600);
    EXPECT_EQ(failure(path, std::string::npos), "");
    // Created, so that no planted link is followed; file and folder are flushed.
    const Names all = {"create", "fchmod", "write", "write", "fsync",
                       "close",  "rename", "open",  "fsync", "close"};
    EXPECT_EQ(calls, all);
    // Failing to set the mode matters only if others could then read what they could not before.
    for (const auto& [mode, refusals] : std::vector<std::pair<unsigned, Names>>{
             {0600, {"create", "fchmod", "write", "write", "fsync", "close", "rename"}},
             {0777, {"create", "write", "write", "fsync", "close", "rename"}}}) {
        Names refused;
        for (size_t good = 0; good < all.size(); ++good) {
            restore(mode);
            const bool saved = failure(path, good).empty();
            EXPECT_EQ(temp.read("A"), saved ? newBytes : oldBytes) << all[good];
            EXPECT_EQ(temp.names(), std::set<std::string>{"A"}) << all[good];
            if (!saved) {
                refused.push_back(all[good]);
            }
        }
        EXPECT_EQ(refused, refusals);
    }
}

TEST_F(FileFault, KilledSavesLeaveTheOldOrTheNewFile) {
    std::filesystem::create_symlink("A", temp.path("link"));
    std::set<std::string> seen;
    int end = killed;
    for (size_t good = 0; end == killed; ++good) {
        restore(0600);
        const pid_t child = fork();
        if (child == 0) {
            kills = true;
            _exit(failure(temp.path("link"), good).empty() ? 0 : 1);
        }
        int status = 0;
        waitpid(child, &status, 0);
        end = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
        seen.insert(temp.read("A"));
        // Only the owner may read what killed saves leave in the folder, as with the file itself.
        for (const std::string& name : temp.names()) {
            const perms mode = std::filesystem::status(temp.path(name)).permissions();
            EXPECT_TRUE((mode & perms::others_read) == perms::none || temp.read(name).empty());
        }
        EXPECT_EQ(failure(path, std::string::npos), "") << "what a killed save left is in the way";
    }
    EXPECT_EQ(end, 0);
    EXPECT_EQ(seen, std::set<std::string>({oldBytes, newBytes}));
    EXPECT_TRUE(std::filesystem::is_symlink(temp.path("link")));
}

} // namespace turnpost
