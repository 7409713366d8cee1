#pragma once

#include <array>
#include <string>

namespace turnpost {

inline constexpr const char* emptySlotName = " - Empty - ";

/// One entry of the Stored Games menu; empty when its name is emptySlotName.
struct StoredGame {
    std::string StoredGameName = emptySlotName;
    /// Full path of the game details file.
    std::string StoredGameFile;

    bool operator==(const StoredGame&) const = default;
};

/// What the settings file keeps between runs. Without a file the start values apply.
struct Settings {
    std::string HostName = {};
    std::string HostEmail = {};
    std::string SmtpServer = {};
    std::array<StoredGame, 4> StoredGames = {};
    /// Full path of the game details file that start-up loads; empty for none.
    std::string DefaultGameFile = {};

    bool operator==(const Settings&) const = default;
};

} // namespace turnpost
