#pragma once

#include "compose/MessageTemplate.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace turnpost {

/// Values may hold placeholders themselves, so the text can grow exponentially; this is the limit.
inline constexpr size_t maxExpandedBytes = size_t{64} << 20;

/// The text with every placeholder filled for one row (0 to 15), in this order: <<GN>> the game
/// name, <<PN>> the player number, <<FN>> the first name, <<GY>> the game year. A value that one
/// step has filled in may hold placeholders for a later step. Throws std::length_error when filled
/// values make the text longer than maxExpandedBytes; never fails otherwise.
std::string ExpandTemplate(std::string_view text, std::string_view gameName, int row,
                           std::string_view playerName, std::int16_t gameYear);

/// The characters before the first space of a player's name; all of it when it holds none.
std::string FirstName(std::string_view playerName);

/// The template that the message editor's "Default" button fills in, with the version number
/// already in it.
MessageTemplate defaultTemplate();

} // namespace turnpost
