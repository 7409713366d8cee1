#pragma once

#include "process/RunProgram.h"
#include "text/Refusal.h"

#include <optional>
#include <string>

namespace turnpost {

/// Nothing when the sendmail program has accepted the message. Otherwise the last five non-empty
/// lines that it wrote to standard error, or else to standard output, joined by CR LF. If it did
/// not exit by itself, how it ended is added; if it wrote nothing, how it ended is all.
std::optional<Refusal> sendmailFailure(const ProgramEnd& end, const std::string& program,
                                       std::chrono::milliseconds limit);

} // namespace turnpost
