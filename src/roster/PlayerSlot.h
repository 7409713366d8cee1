#pragma once

#include <string>

namespace turnpost {

/// One player of the roster. Row i, 0 to 15, is player i + 1.
struct PlayerSlot {
    /// 0 leaves the player out; anything else includes. Only 0 and 1 come from the window.
    int IncludePlayer = 0;
    std::string PlayerName;
    std::string PlayerEmail;
    std::string AltEmail;
    /// Turn file name without folder.
    std::string GameFile;
    /// The row belongs to the current game: its controls are visible.
    bool Shown = false;

    bool operator==(const PlayerSlot&) const = default;
};

} // namespace turnpost
