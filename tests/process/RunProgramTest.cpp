#include "process/RunProgram.h"
#include "fakes/TempFolder.h"
#include "files/Descriptor.h"
#include "support/Resources.h"

#include <gtest/gtest.h>

#include <array>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace turnpost {

using Kind = ProgramEnd::Kind;
using std::chrono::milliseconds;

class RunProgram : public testing::Test {
  protected:
    static ProgramEnd shell(const std::string& script, const std::string& input = "",
                            int timeout = 20000) {
        return runProgram("/bin/sh", {"-c", script, "sh", "a  b", "$HOME", "", "*", "'; exit 9"},
                          input, milliseconds(timeout));
    }

    static void expectEnd(const ProgramEnd& end, Kind kind, int number) {
        EXPECT_EQ(std::pair(end.kind, end.number), std::pair(kind, number)) << end.errorText;
    }

    const std::string mebibytes = std::string(5 << 20, 'x');
    TempFolder temp;
};

TEST_F(RunProgram, PassesArgumentsButNoShellOrTerminal) {
    EXPECT_EQ(shell("printf '[%s]' \"$@\" >&2").errorText, "[a  b][$HOME][][*]['; exit 9]");
    expectEnd(shell("read -r p name s parent group session t </proc/$$/stat; test $session = $$"),
              Kind::Exited, 0);
}

TEST_F(RunProgram, MebibytesBothWaysNeverBlock) {
    const ProgramEnd end =
        shell("tee '" + temp.path("input") + "' | tee /dev/stderr; printf last >&2; printf words",
              mebibytes);
    expectEnd(end, Kind::Exited, 0);
    EXPECT_TRUE(temp.read("input") == mebibytes);
    EXPECT_EQ(end.errorText, std::string(65532, 'x') + "last");
    EXPECT_EQ(end.outputText, std::string(65531, 'x') + "words");
}

TEST_F(RunProgram, HangingProgramsAreKilledWithTheirChildren) {
    const size_t before = automation::openDescriptors();
    std::array<int, 2> held{};
    ASSERT_EQ(pipe(held.data()), 0);
    const ProgramEnd end = shell("exec 0<&-; echo words >&2; sleep 60 & wait", mebibytes, 500);
    close(held[1]);
    expectEnd(end, Kind::TimedOut, SIGKILL);
    EXPECT_EQ(end.errorText, "words\n");
    pollfd ends{held[0], POLLIN, 0};
    EXPECT_EQ(poll(&ends, 1, 10000), 1) << "something still runs and holds the pipe";
    close(held[0]);
    EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1) << "a child was not reaped";
    runProgram(temp.path("missing"), {}, "", milliseconds(20000));
    EXPECT_EQ(automation::openDescriptors(), before);
}

TEST_F(RunProgram, BackgroundChildrenRunOnUnhindered) {
    ASSERT_EQ(mkfifo(temp.path("go").c_str(), 0600) | mkfifo(temp.path("done").c_str(), 0600), 0);
    const Descriptor go(open(temp.path("go").c_str(), O_RDWR));
    const Descriptor done(open(temp.path("done").c_str(), O_RDWR));
    pollfd alive{done.get(), POLLIN, 0};
    expectEnd(shell("cd '" + temp.path() +
                    "'; { read line; printf '%0200000d' 0; "
                    "printf '%0200000d' 0 >&2; echo alive >done; } <go & exit 4"),
              Kind::Exited, 4);
    EXPECT_EQ(write(go.get(), "\n", 1), 1);
    EXPECT_EQ(poll(&alive, 1, 10000), 1) << "it was killed or is blocked";
}

TEST_F(RunProgram, ExitStatusIsKnownWhenSigchldIsIgnored) {
    const auto before = std::signal(SIGCHLD, SIG_IGN);
    expectEnd(shell("exit 5"), Kind::Exited, 5);
    EXPECT_EQ(std::signal(SIGCHLD, before), SIG_IGN);
}

} // namespace turnpost
