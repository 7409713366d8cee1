#pragma once

#include "compose/SendState.h"
#include "roster/PlayerSlot.h"
#include "storage/Settings.h"

#include <string>
#include <vector>

namespace turnpost {

// Everything the session says, as bytes for the wire. A line break inside a value that belongs on
// one line goes out as a blank: no value can add a command, a recipient or a header.

/// The HELO line (RFC 5321, 4.1.1.1): the part of the host's address before its first "@"; all of
/// it when it has none, "localhost" when it is empty.
std::string heloLine(const Settings& settings);

/// The MAIL FROM line, without angle brackets.
std::string mailLine(const Settings& settings);

/// The RCPT TO line, without angle brackets. The alternate address gets none: it is only named in
/// the message.
std::string recipientLine(const PlayerSlot& player);

/// The message text as the sends that make it up: From, To, CC where there is an alternate address,
/// Subject with the empty line that ends the header, body and attachments, and the line of one
/// period. In body and attachments every period at the start of a line is doubled (RFC 5321,
/// 4.5.2). Takes the attachments out of the state.
std::vector<std::string> messageText(const Settings& settings, const PlayerSlot& player,
                                     SendState& state);

} // namespace turnpost
