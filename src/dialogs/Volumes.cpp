#include "dialogs/Volumes.h"

#include "platform/Path.h"
#include "platform/Text.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace turnpost {

namespace {

constexpr std::array<std::string_view, 12> shares = {
    "nfs",   "nfs4",       "cifs",        "smb3",
    "smbfs", "fuse.sshfs", "fuse.rclone", "fuse.gvfsd-fuse",
    "9p",    "virtiofs",   "vboxsf",      "fuse.vmhgfs-fuse"};

constexpr std::array<std::string_view, 6> systemFolders = {"/boot", "/snap", "/etc",
                                                           "/usr",  "/sys",  "/proc"};

bool liesUnder(std::string_view path, std::string_view folder) {
    if (!path.starts_with(folder)) {
        return false;
    }
    return path.size() == folder.size() || isSeparator(folder.back()) ||
           isSeparator(path[folder.size()]);
}

bool isForPeople(const Volume& volume) {
    const bool share = std::find(shares.begin(), shares.end(), volume.fileSystem) != shares.end();
    const bool disk = volume.device.starts_with("/dev/") && volume.fileSystem != "squashfs";
    const bool ofTheSystem =
        std::any_of(systemFolders.begin(), systemFolders.end(),
                    [&](std::string_view folder) { return liesUnder(volume.mountPoint, folder); });
    return (share || disk) && !ofTheSystem;
}

} // namespace

std::vector<std::string> volumesForPeople(const std::vector<Volume>& mounted) {
    std::vector<std::string> mountPoints = {"/"};
    for (const Volume& volume : mounted) {
        const bool known = std::find(mountPoints.begin(), mountPoints.end(), volume.mountPoint) !=
                           mountPoints.end();
        if (!known && isForPeople(volume)) {
            mountPoints.push_back(volume.mountPoint);
        }
    }
    return mountPoints;
}

std::string volumeOf(const std::string& folder, const std::vector<std::string>& mountPoints) {
    std::string best;
    for (const std::string& mountPoint : mountPoints) {
        // Drive letters come in either case.
        const bool drive = mountPoint.size() > 1 && mountPoint[1] == ':';
        const bool under = drive ? liesUnder(foldCase(folder), foldCase(mountPoint))
                                 : liesUnder(folder, mountPoint);
        if (under && mountPoint.size() > best.size()) {
            best = mountPoint;
        }
    }
    return best;
}

} // namespace turnpost
