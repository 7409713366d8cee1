#pragma once

#include "files/Files.h"
#include "text/Path.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <set>
#include <string>

namespace turnpost {

/// A folder for one test, deleted at the test's end. Names are relative to it.
class TempFolder {
  public:
    TempFolder() { std::filesystem::create_directory(folder_); }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;
    ~TempFolder() {
        // A test may have removed the right to write.
        std::error_code ignored;
        std::filesystem::permissions(folder_, std::filesystem::perms::owner_all, ignored);
        std::filesystem::remove_all(folder_, ignored);
    }

    std::string path() const { return fromNativePath(folder_); }
    std::string path(const std::string& name) const {
        return fromNativePath(toNativePath(joinPath(path(), name)).make_preferred());
    }

    void makeFolder(const std::string& name) const {
        std::filesystem::create_directories(toNativePath(path(name)));
    }

    void write(const std::string& name, const std::string& bytes) const {
        std::ofstream(toNativePath(path(name)), std::ios::binary) << bytes;
    }

    /// The bytes of a file, by its exact name; empty when there is none.
    std::string read(const std::string& name) const {
        std::ifstream file(toNativePath(path(name)), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    }

    /// The names of everything in the folder, hidden files included.
    std::set<std::string> names() const {
        std::set<std::string> found;
        for (const auto& entry : std::filesystem::directory_iterator(folder_)) {
            found.insert(fromNativePath(entry.path().filename()));
        }
        return found;
    }

  private:
    const std::filesystem::path folder_ = std::filesystem::temp_directory_path() /
                                          ("turnpost-" + std::to_string(std::random_device()()));
};

} // namespace turnpost
