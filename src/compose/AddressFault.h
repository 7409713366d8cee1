#pragma once

#include "compose/Transport.h"
#include "text/Refusal.h"

#include <optional>
#include <string_view>

namespace turnpost {

/// Why no mail can go to this address as it is shown: words that name the first character at fault
/// and its place, counted from 1 in the line that the address makes. Nothing when there is none.
///
/// No transport takes an invisible character: the address looks right and leads elsewhere. SMTP
/// takes no character without bytes in the wire's code page either: it would go out as "?", which
/// is another address. Line breaks count as the blanks that they become.
std::optional<Refusal> addressFault(std::string_view address, Transport transport);

} // namespace turnpost
