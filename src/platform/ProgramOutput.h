#pragma once

#include "platform/Descriptor.h"

#include <string>

namespace turnpost {

/// Our end of the pipe that a program writes its standard output or standard error to.
///
/// A pipe, not a file: a program that is left behind may write for as long as it lives, and a pipe
/// takes 64 KiB of that and no more. The program's end is open for reading as well, so the pipe has
/// a reader for as long as somebody can write to it: nobody dies of a broken pipe when our end
/// goes.
class ProgramOutput {
  public:
    /// False, with errno set, when there is no pipe to be had.
    bool open();

    /// The end for the program to be started; it is closed when another program starts.
    int writingEnd() const { return writing.get(); }
    /// To be waited at for something to read.
    int readingEnd() const { return reading.get(); }

    /// Takes what has been written, one buffer at a time. Never waits.
    void read();

    /// Takes what the pipe holds at this moment and closes our ends. Who still writes then never
    /// waits for a reader: what the pipe cannot hold is refused with EAGAIN. Gives the last 64 KiB
    /// of all that was written.
    std::string finish();

  private:
    Descriptor reading;
    Descriptor writing;
    std::string text;
};

} // namespace turnpost
