#include "fakes/TempFolder.h"
#include "platform/FileError.h"

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

const std::string oldBytes = "\"old\"\r\n";
const std::string newBytes = "\"" + std::string(700, 'n') + "\"\r\n";

constexpr int replaced = 0;
constexpr int refused = 1;

#ifdef SYS_rename
constexpr unsigned renameCall = SYS_rename;
#else
constexpr unsigned renameCall = SYS_renameat;
#endif

int replaceAndTell(const std::string& path) {
    try {
        replaceFile(path, newBytes);
        return replaced;
    } catch (const FileError& error) {
        return error.reason().empty() ? 2 : refused;
    }
}

pid_t startChild(const std::function<int()>& work) {
    const pid_t child = fork();
    if (child == 0) {
        _exit(work());
    }
    return child;
}

// From now on the system refuses this call of the process with EIO.
void refuseCall(unsigned number) {
    sock_filter program[] = {BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
                             BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, number, 0, 1),
                             BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | EIO),
                             BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW)};
    const sock_fprog filter{4, program};
    if (prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0 ||
        prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &filter) != 0) {
        _exit(3);
    }
}

std::string nameOfCall(std::uint64_t number, std::uint64_t flags) {
    constexpr auto anew = static_cast<std::uint64_t>(O_CREAT | O_EXCL);
    if (number == SYS_openat && (flags & O_CREAT) != 0) {
        return (flags & anew) == anew ? "new " : "open ";
    }
    return number == SYS_write    ? "write "
           : number == SYS_fsync  ? "flush "
           : number == renameCall ? "rename "
                                  : "";
}

// Saves in a child that is killed after so many stops before and after its system calls. True when
// it came to its end before that; its calls that change files then stand in the trace.
bool endsBefore(int stops, const std::string& path, std::string& trace) {
    const pid_t child = startChild([&] {
        ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
        raise(SIGSTOP);
        return replaceAndTell(path);
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
        if (WIFSTOPPED(status) && call.op == PTRACE_SYSCALL_INFO_ENTRY) {
            trace += nameOfCall(call.entry.nr, call.entry.args[2]);
        }
    }
    if (WIFSTOPPED(status)) {
        kill(child, SIGKILL);
        waitpid(child, &status, 0);
        return false;
    }
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == replaced);
    return true;
}

} // namespace

class FileFault : public testing::Test {
  protected:
    void expectOnlyTheOldFile() const {
        EXPECT_EQ(temp.read("A"), oldBytes);
        EXPECT_EQ(temp.names(), std::set<std::string>({"A"}));
    }

    // What killed saves left beside the file is for its owner's eyes, as the file is.
    void expectNothingReadableByOthers() const {
        for (const std::string& name : temp.names()) {
            const auto status = std::filesystem::status(temp.path(name));
            const bool readable = (status.permissions() & std::filesystem::perms::others_read) !=
                                  std::filesystem::perms::none;
            EXPECT_FALSE(readable && !temp.read(name).empty()) << name;
        }
    }

    TempFolder temp;
    std::string path = temp.path("A");
};

TEST_F(FileFault, AWriteThatFailsAtAnyByteLeavesTheOldFileWhole) {
    temp.write("A", oldBytes);
    struct rlimit before {};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &before), 0);
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    for (size_t room = 0; room < newBytes.size() && !HasFailure(); ++room) {
        const struct rlimit small { room, before.rlim_max };
        ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
        EXPECT_EQ(replaceAndTell(path), refused) << room;
        setrlimit(RLIMIT_FSIZE, &before);
        expectOnlyTheOldFile();
    }
    std::signal(SIGXFSZ, handler);
    EXPECT_EQ(replaceAndTell(path), replaced);
    EXPECT_EQ(temp.read("A"), newBytes);
}

TEST_F(FileFault, AnyOtherSystemCallThatFailsLeavesTheOldFileWholeAndIsReported) {
    temp.write("A", oldBytes);
    // The mode is set where it differs, and has to be where others could read what they could not.
    struct Case {
        unsigned call = 0;
        mode_t mode = 0644;
        int outcome = refused;
    };
    // Sanitizers write for themselves; a write that fails has its own test.
    for (const Case& row :
         {Case{SYS_openat}, Case{SYS_fchmod, 0600}, Case{SYS_fsync}, Case{SYS_close},
          Case{renameCall}, Case{SYS_fchmod, 0644, replaced}, Case{SYS_fchmod, 0777, replaced}}) {
        std::filesystem::permissions(path, std::filesystem::perms(row.mode));
        int status = 0;
        waitpid(startChild([&] {
                    umask(022);
                    refuseCall(row.call);
                    return replaceAndTell(path);
                }),
                &status, 0);
        EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == row.outcome) << row.call;
        if (row.outcome == refused) {
            expectOnlyTheOldFile();
        }
        temp.write("A", oldBytes);
    }
}

TEST_F(FileFault, AProcessKilledBetweenAnyTwoSystemCallsLeavesTheOldOrTheNewFileWhole) {
    for (const std::string name : {"A", "link"}) {
        temp.write("A", oldBytes);
        std::filesystem::permissions(path, std::filesystem::perms(0600));
        if (name == "link") {
            std::filesystem::create_symlink("A", temp.path("link"));
        }
        std::set<std::string> seen;
        std::string trace;
        int stops = 0;
        while (!endsBefore(stops, temp.path(name), trace) && !HasFailure()) {
            ++stops;
            const std::string found = temp.read("A");
            EXPECT_TRUE(found == oldBytes || found == newBytes) << stops << found;
            seen.insert(found);
            expectNothingReadableByOthers();
            EXPECT_EQ(replaceAndTell(path), replaced) << "what a killed save left is in the way";
            temp.write("A", oldBytes);
        }
        EXPECT_GT(stops, 20);
        EXPECT_EQ(seen.size(), 2U) << "never killed on both sides of the change";
        EXPECT_EQ(temp.read("A"), newBytes);
        // Made anew, so through no link that somebody laid; durable, its folder's entry too.
        EXPECT_EQ(trace, "new write flush rename flush ");
    }
    EXPECT_TRUE(std::filesystem::is_symlink(temp.path("link")));
}

} // namespace turnpost
