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

/// The mount points that a person would look for files on, for a system without drive letters: the
/// root first, then disks, sticks and network shares in the order given. The system's own mounts
/// (processes, devices, packages, boot files) are left out.
std::vector<std::string> volumesForPeople(const std::vector<Volume>& mounted);

/// The mount point that holds the folder: the longest one it lies under; empty when there is none.
std::string volumeOf(const std::string& folder, const std::vector<std::string>& mountPoints);

} // namespace turnpost
