#pragma once

#include <string>

namespace turnpost {

inline constexpr const char* applicationTitle = "Nimbus Turnpost";

struct Version {
    int major = 0;
    int minor = 0;
    int revision = 0;
};

/// The version of this release; CMakeLists.txt gives it to the build.
extern const Version currentVersion;

/// Major, minor and revision in decimal without padding, joined by ".": 1.3.0.
std::string versionText(const Version& version = currentVersion);

} // namespace turnpost
