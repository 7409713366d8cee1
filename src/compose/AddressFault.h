#pragma once

#include "compose/Transport.h"
#include "text/Refusal.h"

#include <optional>
#include <string_view>

namespace turnpost {

/// Why mail cannot be sent to exactly this address: words that name the first bad character and its
/// place, counted from 1. Nothing when no character is bad. Line breaks are sent, and counted, as
/// blanks.
///
/// An invisible character is bad for both transports, because the address is not what it looks
/// like. A character that the code page for SMTP lacks is bad there, because it would be sent as
/// "?".
std::optional<Refusal> addressFault(std::string_view address, Transport transport);

} // namespace turnpost
