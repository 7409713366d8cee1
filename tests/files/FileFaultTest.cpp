#include "fakes/TempFolder.h"
#include "files/FileError.h"

#include <csignal>
#include <cstddef>
#include <fcntl.h>
#include <functional>
#include <gtest/gtest.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/ptrace.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace turnpost {

namespace {

using std::filesystem::perms;
using Fault = std::function<void()>;
using Calls = std::vector<std::uint64_t>;

const std::string oldBytes = "\"old\"\r\n";
const std::string newBytes = "\"" + std::string(90, 'n') + "\"\r\n";

#ifdef SYS_rename
constexpr unsigned renameCall = SYS_rename;
#else
constexpr unsigned renameCall = SYS_renameat;
#endif

// Saves in a child, in which the fault is set up first. The child exits with 1 if the save fails.
pid_t startSave(const std::string& path, const Fault& fault) {
    const pid_t child = fork();
    if (child == 0) {
        umask(022);
        fault();
        try {
            replaceFile(path, newBytes);
        } catch (const FileError&) {
            _exit(1);
        }
        _exit(0);
    }
    return child;
}

// From now on no file of this process can grow beyond `room` bytes.
void fillDisk(size_t room) {
    const struct rlimit small { room, room };
    std::signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &small);
}

// From now on the system refuses this call of the process with EIO.
void refuseCall(unsigned number) {
    sock_filter program[] = {BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
                             BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, number, 0, 1),
                             BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | EIO),
                             BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW)};
    const sock_fprog filter{4, program};
    prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0);
    prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &filter);
}

// Saves in a child that stops before and after each of its system calls, and is killed after this
// many stops. True when it ended before that; the trace then holds its calls that change files (of
// those that open a file, only the one that creates it).
bool endsBefore(int stops, const std::string& path, Calls& trace) {
    const pid_t child = startSave(path, [] {
        ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
        raise(SIGSTOP);
    });
    trace.clear();
    int status = 0;
    waitpid(child, &status, WUNTRACED);
    ptrace(PTRACE_SETOPTIONS, child, nullptr, PTRACE_O_EXITKILL | PTRACE_O_TRACESYSGOOD);
    for (int stop = 0; stop < stops && WIFSTOPPED(status); ++stop) {
        ptrace(PTRACE_SYSCALL, child, nullptr, nullptr);
        waitpid(child, &status, 0);
        __ptrace_syscall_info call{};
        ptrace(PTRACE_GET_SYSCALL_INFO, child, sizeof call, &call);
        const auto number = call.entry.nr;
        const bool makes = number == SYS_openat && (call.entry.args[2] & O_EXCL) != 0;
        if (call.op == PTRACE_SYSCALL_INFO_ENTRY &&
            (makes || number == SYS_write || number == SYS_fsync || number == renameCall)) {
            trace.push_back(number);
        }
    }
    if (WIFSTOPPED(status)) {
        kill(child, SIGKILL);
        waitpid(child, &status, 0);
    }
    return WIFEXITED(status);
}

} // namespace

class FileFault : public testing::Test {
  protected:
    FileFault() { temp.write("A", oldBytes); }

    void expectAfter(const Fault& fault, const std::string& bytes) const {
        int status = 0;
        waitpid(startSave(path, fault), &status, 0);
        EXPECT_TRUE(WIFEXITED(status) && (WEXITSTATUS(status) == 0) == (bytes == newBytes));
        EXPECT_EQ(temp.read("A"), bytes);
        EXPECT_EQ(temp.names(), std::set<std::string>({"A"}));
    }

    TempFolder temp;
    std::string path = temp.path("A");
};

TEST_F(FileFault, FailedSystemCallsLeaveTheOldFileWhole) {
    for (size_t room = 0; room < newBytes.size(); ++room) {
        expectAfter([room] { fillDisk(room); }, oldBytes);
    }
    for (const unsigned call : std::set<unsigned>{SYS_openat, SYS_fsync, SYS_close, renameCall}) {
        expectAfter([call] { refuseCall(call); }, oldBytes);
    }
    // Failing to set the mode matters only if others could then read what they could not before.
    for (const auto& [mode, bytes] : {std::pair(0600, oldBytes), {0777, newBytes}}) {
        std::filesystem::permissions(path, perms(mode));
        expectAfter([] { refuseCall(SYS_fchmod); }, bytes);
    }
}

TEST_F(FileFault, KilledSavesLeaveTheOldOrTheNewFile) {
    std::filesystem::permissions(path, perms(0600));
    std::filesystem::create_symlink("A", temp.path("link"));
    std::set<std::string> seen;
    Calls trace;
    for (int stops = 0; !endsBefore(stops, temp.path("link"), trace); ++stops) {
        seen.insert(temp.read("A"));
        // Only the owner may read what killed saves leave in the folder, as with the file itself.
        for (const std::string& name : temp.names()) {
            const perms mode = std::filesystem::status(temp.path(name)).permissions();
            EXPECT_TRUE((mode & perms::others_read) == perms::none || temp.read(name).empty());
        }
        replaceFile(path, newBytes);
        temp.write("A", oldBytes);
    }
    EXPECT_EQ(seen, std::set<std::string>({oldBytes, newBytes}));
    EXPECT_EQ(temp.read("A"), newBytes);
    // The file was created, so no planted link was followed; file and folder were flushed.
    EXPECT_EQ(trace, Calls({SYS_openat, SYS_write, SYS_fsync, renameCall, SYS_fsync}));
    EXPECT_TRUE(std::filesystem::is_symlink(temp.path("link")));
}

} // namespace turnpost
