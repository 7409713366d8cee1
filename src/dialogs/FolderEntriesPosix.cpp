#include "dialogs/FolderEntries.h"
#include "platform/Files.h"

namespace turnpost {

namespace fs = std::filesystem;

std::optional<std::vector<FolderEntry>> folderEntries(const fs::path& folder) {
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
            std::string name = fromNativePath(entry->path().filename());
            const bool hidden = name.starts_with('.');
            entries.push_back({std::move(name), isFolder, hidden});
        }
    }
    return entries;
}

} // namespace turnpost
