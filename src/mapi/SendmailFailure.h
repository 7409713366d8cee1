#pragma once

#include "platform/RunProgram.h"

#include <optional>
#include <string>

namespace turnpost {

/// Nothing when the sendmail program has taken the message. Else why not: the first three lines
/// with text that it wrote to standard error, joined by CR LF; where it wrote none, how it ended.
std::optional<std::string> sendmailFailure(const ProgramEnd& end, const std::string& program,
                                           std::chrono::milliseconds limit);

} // namespace turnpost
