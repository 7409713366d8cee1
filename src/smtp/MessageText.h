#pragma once

#include "compose/SendState.h"
#include "roster/PlayerSlot.h"
#include "storage/Settings.h"

#include <string>
#include <vector>

namespace turnpost {

// Everything that the session sends, as bytes. A line break inside a one-line value is sent as a
// blank, so that no value can add a command, a recipient or a header.

/// The HELO line (RFC 5321, 4.1.1.1) with the part of the host's address before its first "@". An
/// address without "@" is taken whole; if it is empty, the line has "localhost".
std::string heloLine(const Settings& settings);

/// The MAIL FROM line, without angle brackets.
std::string mailLine(const Settings& settings);

/// The RCPT TO line, without angle brackets. The alternate address gets no such line: it is only
/// named in the message.
std::string recipientLine(const PlayerSlot& player);

/// The parts of the message text in sending order: From, To, CC (only with an alternate address),
/// Subject with the empty line that ends the header, body with attachments, and the line of one
/// period. In body and attachments every period at the start of a line is doubled (RFC 5321,
/// 4.5.2). Moves the attachments out of `state`.
std::vector<std::string> messageText(const Settings& settings, const PlayerSlot& player,
                                     SendState& state);

} // namespace turnpost
