#pragma once

#include "compose/MessageTemplate.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace turnpost {

/// Placeholders in values multiply: a few kilobytes of them could fill any memory.
inline constexpr size_t maxExpandedBytes = size_t{64} << 20;

/// The text with every placeholder filled for one row (0 to 15), in this order: <<GN>> the game
/// name, <<PN>> the player number, <<FN>> the first name, <<GY>> the game year. A value put in by
/// an earlier step is scanned by the later ones. Reads nothing but its arguments. Cannot fail, but
/// for std::length_error when filling placeholders makes it longer than maxExpandedBytes.
std::string ExpandTemplate(std::string_view text, std::string_view gameName, int row,
                           std::string_view playerName, std::int16_t gameYear);

/// The characters before the first space of a player's name; all of it when it holds none.
std::string FirstName(std::string_view playerName);

/// The template that the message editor's "Default" button fills in; the version is plain text in
/// it.
MessageTemplate defaultTemplate();

} // namespace turnpost
