#include "text/Version.h"

namespace turnpost {

const Version currentVersion{TURNPOST_VERSION};

std::string versionText(const Version& version) {
    return std::to_string(version.major) + "." + std::to_string(version.minor) + "." +
           std::to_string(version.revision);
}

} // namespace turnpost
