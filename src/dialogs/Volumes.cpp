#include "dialogs/Volumes.h"

#include "dialogs/FolderList.h"
#include "files/Files.h"
#include "text/Path.h"
#include "text/Text.h"

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

void addOnce(std::vector<std::string>& places, const std::string& place) {
    if (std::find(places.begin(), places.end(), place) == places.end()) {
        places.push_back(place);
    }
}

} // namespace

std::vector<std::string> placesForPeople(const std::vector<Volume>& mounted,
                                         const std::string& home, const std::string& winePrefix) {
    std::vector<std::string> places = {"/"};
    if (isFolder(home) && !whyUnusable(home)) {
        addOnce(places, home);
    }
    for (const std::string& prefix : {winePrefix, joinPath(home, ".wine")}) {
        const std::string driveC = joinPath(prefix, "drive_c");
        if (isAbsolutePath(driveC) && isFolder(driveC) && !whyUnusable(driveC)) {
            addOnce(places, driveC);
            break;
        }
    }
    for (const Volume& volume : mounted) {
        if (isForPeople(volume)) {
            addOnce(places, volume.mountPoint);
        }
    }
    return places;
}

std::string volumeOf(const std::string& folder, const std::vector<std::string>& places) {
    std::string best;
    for (const std::string& place : places) {
        // Drive letters come in either case.
        const bool drive = place.size() > 1 && place[1] == ':';
        const bool under =
            drive ? liesUnder(foldCase(folder), foldCase(place)) : liesUnder(folder, place);
        if (under && place.size() > best.size()) {
            best = place;
        }
    }
    return best;
}

} // namespace turnpost
