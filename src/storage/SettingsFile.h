#pragma once

#include "storage/Settings.h"

#include <string>
#include <string_view>

namespace turnpost {

/// Settings taken from the text of a settings file. When it is damaged, `settings` holds the
/// complete lines before the damage, and start values after them.
struct SettingsReading {
    Settings settings;
    bool damaged = false;
};

/// Reads the 12 values of a settings file (UTF-8, line ends CR LF or LF); ignores anything after
/// them. Values are read in order (see QuotedValues.h). If no text holds a double quote, every text
/// comes back exactly, with its commas and line breaks. Otherwise the lines of the file decide; a
/// stored game's line that holds `","` in several places cannot be divided and counts as damage. A
/// NUL, which nobody types, is damage too. If one text holds a double quote and another a line
/// break, values may move; survivesRoundTrip() detects that.
SettingsReading parseSettings(std::string_view text);

/// The 8 lines of a settings file (UTF-8, CR LF).
std::string printSettings(const Settings& settings);

/// True when the file written for these settings gives back every text unchanged. False when the
/// format or the system's code page cannot keep a text.
bool survivesRoundTrip(const Settings& settings);

/// TURNPOST.INI: in the program's folder when the file is there already or can be created there,
/// else in the user's configuration folder. A folder named bin is shared by many programs; no
/// settings file is created there, even when the folder is writable.
class SettingsFile {
  public:
    enum class Outcome { Missing, Read, Damaged };

    SettingsFile(const std::string& programFolder, const std::string& configurationFolder);

    const std::string& path() const { return filePath_; }

    /// Reads the file into `settings`; a missing file gives the start values. Throws FileError when
    /// the file exists but cannot be read; `settings` then holds the start values too. A file
    /// larger than maxOwnFileBytes counts as damaged.
    Outcome read(Settings& settings);

    /// Where a copy of a damaged file goes: TURNPOST.BAD in the same folder. When that name is
    /// taken, the next free number is added (TURNPOST.BAD2), so that no older copy is lost.
    std::string copyPath() const;

    /// Writes the whole file. A file that was damaged or unreadable is first copied to copyPath().
    /// Throws FileError; the file is then unchanged.
    void write(const Settings& settings);

  private:
    std::string filePath_;
    bool keepDamaged_ = false;
};

} // namespace turnpost
