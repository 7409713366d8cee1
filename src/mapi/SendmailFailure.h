#pragma once

#include "process/RunProgram.h"
#include "text/Refusal.h"

#include <optional>
#include <string>

namespace turnpost {

/// Nothing when the sendmail program has taken the message. Else why not: the last five lines with
/// text that it wrote to standard error, else to standard output, joined by CR LF. How it ended
/// follows where that was not by itself, and stands alone where it wrote nothing.
std::optional<Refusal> sendmailFailure(const ProgramEnd& end, const std::string& program,
                                       std::chrono::milliseconds limit);

} // namespace turnpost
