#pragma once

#include "platform/Descriptor.h"
#include "platform/ProgramOutput.h"
#include "platform/RunProgram.h"

#include <sys/types.h>

namespace turnpost {

/// A program that runs, with our ends of the pipes to and from it.
class RunningProgram {
  public:
    /// The child is the leader of a process group of its own. `inputBytes` must outlive it. SIGPIPE
    /// must not end this process meanwhile.
    RunningProgram(pid_t startedChild, Descriptor inputPipe, ProgramOutput outputPipe,
                   ProgramOutput errorPipe, const std::string& inputBytes);

    /// Feeds it until it ends, or is killed, and gives its end.
    ProgramEnd wait(std::chrono::milliseconds longest);

  private:
    bool hasEnded();
    void exchange(std::chrono::milliseconds timeLeft);
    void writeInput();

    pid_t child;
    Descriptor input;
    ProgramOutput output;
    ProgramOutput errors;
    Descriptor endNotice;
    const std::string& bytes;
    size_t written = 0;
    ProgramEnd end;
};

} // namespace turnpost
