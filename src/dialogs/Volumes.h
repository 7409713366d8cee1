#pragma once

#include <string>
#include <vector>

namespace turnpost {

/// A mounted file system as the system lists it.
struct Volume {
    std::string mountPoint;
    std::string device;
    std::string fileSystem;
};

/// The places of the drive list on a system without drive letters. The root comes first, then, if
/// they exist, the user's home folder and drive C of Wine (`drive_c` in the folder `winePrefix`,
/// else in the home folder's .wine), then disks, sticks and network shares in the order given. The
/// system's own mounts (processes, devices, packages, boot files) are left out. `home` and
/// `winePrefix` may be empty.
std::vector<std::string> placesForPeople(const std::vector<Volume>& mounted,
                                         const std::string& home, const std::string& winePrefix);

/// The place that holds the folder; the longest path, if several do. Empty when there is none.
std::string volumeOf(const std::string& folder, const std::vector<std::string>& places);

} // namespace turnpost
