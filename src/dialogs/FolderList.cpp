#include "dialogs/FolderList.h"

#include "dialogs/FilePicker.h"
#include "files/Files.h"
#include "files/FolderEntries.h"
#include "text/CodePage.h"
#include "text/Messages.h"
#include "text/Path.h"
#include "text/Text.h"

#include <algorithm>
#include <tuple>

namespace turnpost {

namespace fs = std::filesystem;

namespace {

fs::path wholePath(const std::string& folder) {
    if (folder.empty()) {
        return {};
    }
    std::error_code error;
    fs::path path = fs::absolute(pathParts(folder), error);
    // After a symbolic link ".." is not the previous name in the path, so it is resolved on disk.
    const bool climbs = std::find(path.begin(), path.end(), "..") != path.end();
    path = climbs ? fs::canonical(path, error) : path.lexically_normal();
    if (!path.has_filename() && path.has_relative_path()) {
        path = path.parent_path();
    }
    return path.make_preferred();
}

std::vector<FolderLine> linesDownTo(const fs::path& folder) {
    fs::path above = folder.root_path();
    const std::string root = fromNativePath(folder.root_name());
    // A bare server name (\\server) is not a folder; its shares are.
    bool isServer = root.size() > 1 && isSeparator(root[0]) && isSeparator(root[1]);
    std::vector<FolderLine> lines;
    if (!isServer) {
        lines.push_back({fromNativePath(above), fromNativePath(above), {}});
    }
    for (const fs::path& part : folder.relative_path()) {
        above /= part;
        const std::string path = fromNativePath(above);
        lines.push_back({isServer ? path : fromNativePath(part), path, {}});
        isServer = false;
    }
    return lines;
}

struct Sorted {
    bool hidden;
    std::string folded;
    std::string name;
};

bool comesBefore(const Sorted& a, const Sorted& b) {
    return std::tie(a.hidden, a.folded, a.name) < std::tie(b.hidden, b.folded, b.name);
}

std::optional<FolderList> listWholePath(const fs::path& folder, const std::string& pattern) {
    const std::string path = fromNativePath(folder);
    const auto entries = whyUnusable(path) ? std::nullopt : folderEntries(path);
    FolderList list;
    list.lines = linesDownTo(folder);
    if (!entries || list.lines.empty()) {
        return std::nullopt;
    }
    list.current = list.lines.size() - 1;
    std::vector<Sorted> folders;
    std::vector<Sorted> files;
    for (const FolderEntry& entry : *entries) {
        if (entry.folder || matchesPattern(entry.name, pattern)) {
            (entry.folder ? folders : files)
                .push_back({entry.hidden, foldCase(entry.name), entry.name});
        }
    }
    std::sort(folders.begin(), folders.end(), comesBefore);
    std::sort(files.begin(), files.end(), comesBefore);
    const std::string current = list.folder();
    for (const Sorted& subfolder : folders) {
        list.lines.push_back(
            {subfolder.name, joinPath(current, subfolder.name), whyUnusable(subfolder.name)});
    }
    for (const Sorted& file : files) {
        list.files.push_back({file.name, whyUnusable(file.name)});
    }
    return list;
}

} // namespace

std::optional<Refusal> whyUnusable(const std::string& path) {
    if (!isUtf8(path)) {
        return Refusal{messages::nameIsNotUtf8};
    }
    return oneLine(path) == path ? std::nullopt
                                 : std::optional(Refusal{messages::nameHoldsLineBreak});
}

std::optional<FolderList> listFolder(const std::string& folder, const std::string& pattern) {
    return listWholePath(wholePath(folder), pattern);
}

std::optional<FolderList> listNearestFolder(const std::string& folder, const std::string& pattern) {
    fs::path path = wholePath(folder);
    auto list = listWholePath(path, pattern);
    while (!list && path.has_relative_path()) {
        path = path.parent_path();
        list = listWholePath(path, pattern);
    }
    return list;
}

bool matchesPattern(const std::string& name, const std::string& pattern) {
    if (pattern == anyFilePattern) {
        return true;
    }
    const std::string text = foldCase(name);
    const std::string wanted = foldCase(pattern);
    const size_t star = wanted.find('*');
    if (star == std::string::npos) {
        return text == wanted;
    }
    const std::string_view before = std::string_view(wanted).substr(0, star);
    const std::string_view after = std::string_view(wanted).substr(star + 1);
    return text.size() >= before.size() + after.size() && text.starts_with(before) &&
           text.ends_with(after);
}

} // namespace turnpost
