#include "files/FolderEntries.h"

#include <filesystem>

namespace turnpost {

namespace fs = std::filesystem;

std::optional<std::vector<FolderEntry>> folderEntries(const std::string& folder) {
    std::error_code error;
    fs::directory_iterator entry(folder, error);
    if (error) {
        return std::nullopt;
    }
    std::vector<FolderEntry> entries;
    for (const fs::directory_iterator end; !error && entry != end; entry.increment(error)) {
        std::error_code unreadable;
        const bool isFolder = entry->is_directory(unreadable);
        if (isFolder || entry->is_regular_file(unreadable)) {
            // path().filename() would take most of the time in a large folder.
            const std::string& path = entry->path().native();
            std::string name = path.substr(path.find_last_of('/') + 1);
            const bool hidden = name.starts_with('.');
            entries.push_back({std::move(name), isFolder, hidden});
        }
    }
    return entries;
}

} // namespace turnpost
