#pragma once

#include "storage/Settings.h"

#include <string>
#include <string_view>

namespace turnpost {

/// Settings taken from the text of a settings file. When it is damaged, `settings` holds the whole
/// lines before the damage and start values from there on.
struct SettingsReading {
    Settings settings;
    bool damaged = false;
};

/// Reads the 12 values of a settings file (UTF-8, line ends CR LF or LF); what follows them is not
/// read. Values are read in order (see QuotedValues.h). Without double quotes every text comes back
/// exactly, commas and line breaks included. Texts that hold double quotes come back by the file's
/// lines: only a stored game's line that holds `","` in several places cannot be divided, and makes
/// the file damaged. So does a NUL anywhere, which nobody types. In a file in which one text holds
/// a double quote and one a line break, values may move; survivesRoundTrip() tells.
SettingsReading parseSettings(std::string_view text);

/// The 8 lines of a settings file (UTF-8, CR LF).
std::string printSettings(const Settings& settings);

/// True when the file written for these settings is read back with every text as it is now. False
/// for texts that the format, or the system's code page, cannot keep.
bool survivesRoundTrip(const Settings& settings);

/// TURNPOST.INI: in the program's folder when it is there already or can be made there, else in the
/// person's configuration folder. A folder called bin is one of many programs, where none may leave
/// its settings, even when the person could write them.
class SettingsFile {
  public:
    enum class Outcome { Missing, Read, Damaged };

    SettingsFile(const std::string& programFolder, const std::string& configurationFolder);

    const std::string& path() const { return filePath_; }

    /// Reads the file into `settings`; a missing one gives the start values. Throws FileError when
    /// there is a file that cannot be read; `settings` are the start values then too. One above
    /// maxOwnFileBytes is damaged.
    Outcome read(Settings& settings);

    /// Where a copy of a damaged file goes: TURNPOST.BAD beside it, or with the next number that is
    /// free (TURNPOST.BAD2), so that no older copy is lost.
    std::string copyPath() const;

    /// Writes the whole file. One that was damaged or unreadable is first copied to copyPath().
    /// Throws FileError; the file is then as it was.
    void write(const Settings& settings);

  private:
    std::string filePath_;
    bool keepDamaged_ = false;
};

} // namespace turnpost
