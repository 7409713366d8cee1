#pragma once

#include <cstdint>
#include <string>

namespace turnpost {

/// What the file picker is asked for, and its answer.
struct FilePicker {
    std::string PickerMessage;
    /// File-name pattern such as *.HST, matched without regard to case.
    std::string PickerPattern;
    /// 1 means that no file was chosen.
    std::uint8_t PickerCancelled = 0;
    /// Folder of the chosen file. Only a root ends in a separator.
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

/// Where the dialog opens: the game's folder; or the program's folder, if there is no game or its
/// folder does not exist or is not a path of this system.
std::string pickerStartFolder(const std::string& gamePath, const std::string& programFolder);

} // namespace turnpost
