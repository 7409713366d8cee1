#pragma once

#include <cstdint>
#include <string>

namespace turnpost {

/// Request and answer of the one file-choosing dialog.
struct FilePicker {
    std::string PickerMessage;
    /// File-name pattern such as *.HST, matched without regard to case.
    std::string PickerPattern;
    /// 1 means that no file was chosen.
    std::uint8_t PickerCancelled = 0;
    /// Folder of the chosen file, without a trailing separator but for a root's own.
    std::string PickedFolder;
    std::string PickedFile;
};

inline constexpr const char* hostFilePattern = "*.HST";
inline constexpr const char* gameDetailsPattern = "*.NTP";
/// Every file, with or without a "." in its name.
inline constexpr const char* anyFilePattern = "*.*";

/// True when the dialog offers to make the chosen file the default game.
bool offersDefaultGame(const FilePicker& picker);

/// Full path of the chosen file.
std::string pickedPath(const FilePicker& picker);

/// Where the dialog opens: the game's folder, or the program's when there is no game, or its folder
/// is gone or none of this system.
std::string pickerStartFolder(const std::string& gamePath, const std::string& programFolder);

} // namespace turnpost
