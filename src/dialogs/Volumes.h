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

/// The places of the drive list, for a system without drive letters: the root first, then, where
/// they exist, the person's home folder and drive C of the Windows layer (`drive_c` in the folder
/// `winePrefix`, else in the home's .wine), then the disks, sticks and network shares in the order
/// given. The system's own mounts (processes, devices, packages, boot files) are left out. `home`
/// and `winePrefix` may be empty.
std::vector<std::string> placesForPeople(const std::vector<Volume>& mounted,
                                         const std::string& home, const std::string& winePrefix);

/// The place that holds the folder: the longest one it lies under; empty when there is none.
std::string volumeOf(const std::string& folder, const std::vector<std::string>& places);

} // namespace turnpost
