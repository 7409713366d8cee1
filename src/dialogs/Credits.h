#pragma once

#include <string>

namespace turnpost {

/// The credits of the About box, from credits.txt: its four lines joined by CR LF, with an empty
/// line before the last.
std::string credits();

} // namespace turnpost
