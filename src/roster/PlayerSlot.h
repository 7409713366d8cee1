#pragma once

#include <string>

namespace turnpost {

/// One player of the roster. Row i, 0 to 15, is player i + 1.
struct PlayerSlot {
    /// 0 leaves the player out; any other number includes the player. The window sets only 0 and 1.
    int IncludePlayer = 0;
    std::string PlayerName = {};
    std::string PlayerEmail = {};
    std::string AltEmail = {};
    /// Turn file name without folder.
    std::string GameFile = {};
    /// True when the row belongs to the current game; its controls are then visible.
    bool Shown = false;

    bool operator==(const PlayerSlot&) const = default;
};

} // namespace turnpost
