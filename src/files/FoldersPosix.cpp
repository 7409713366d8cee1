#include "files/Files.h"
#include "files/Folders.h"
#include "text/Path.h"

#include <cstdlib>
#include <fcntl.h>
#include <unistd.h>

namespace turnpost {

std::string programFolder() {
    std::error_code error;
    return folderOfPath(fromNativePath(std::filesystem::read_symlink("/proc/self/exe", error)));
}

std::string configurationFolder() {
    const char* configured = std::getenv("XDG_CONFIG_HOME");
    // By the XDG base directory rules a relative path is ignored.
    if (configured != nullptr && configured[0] == '/') {
        return joinPath(configured, "nimbus-turnpost");
    }
    const char* home = std::getenv("HOME");
    return home == nullptr ? std::string() : joinPath(home, ".config/nimbus-turnpost");
}

bool isFolderWritable(const std::string& folder) {
    return faccessat(AT_FDCWD, folder.c_str(), W_OK | X_OK, AT_EACCESS) == 0;
}

} // namespace turnpost
