#include "files/Folders.h"

#include <cstdlib>
#include <gtest/gtest.h>

#ifndef _WIN32
namespace turnpost {

TEST(Folders, ConfigurationFolderIsNeverRelative) {
    const auto value = [](const char* name) {
        const char* found = std::getenv(name);
        return std::string(found == nullptr ? "" : found);
    };
    const std::string home = value("HOME");
    const std::string configuration = value("XDG_CONFIG_HOME");
    for (const auto& [configured, folder] : {std::pair("/cfg", "/cfg/nimbus-turnpost"),
                                             {"", "/home/host/.config/nimbus-turnpost"},
                                             {"relative", "/home/host/.config/nimbus-turnpost"}}) {
        setenv("HOME", "/home/host", 1);
        setenv("XDG_CONFIG_HOME", configured, 1);
        EXPECT_EQ(configurationFolder(), folder);
    }
    setenv("HOME", home.c_str(), 1);
    setenv("XDG_CONFIG_HOME", configuration.c_str(), 1);
}

} // namespace turnpost
#endif
