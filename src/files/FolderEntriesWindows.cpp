#include "files/Files.h"
#include "files/FolderEntries.h"
#include "text/Path.h"

#include <cwchar>
#include <windows.h>

namespace turnpost {

namespace {

// Empty for a name with an unpaired surrogate, which UTF-8 cannot hold.
std::string utf8(const wchar_t* name) {
    char bytes[4 * MAX_PATH];
    const int length = WideCharToMultiByte(CP_UTF8, WC_ERR_INVALID_CHARS, name, -1, bytes,
                                           sizeof bytes, nullptr, nullptr);
    return length == 0 ? std::string() : std::string(bytes);
}

} // namespace

// The standard library asks the system about each file again, which takes a second in a folder of
// thousands of files.
std::optional<std::vector<FolderEntry>> folderEntries(const std::string& folder) {
    WIN32_FIND_DATAW found;
    const HANDLE search =
        FindFirstFileExW(toNativePath(joinPath(folder, "*")).c_str(), FindExInfoBasic, &found,
                         FindExSearchNameMatch, nullptr, FIND_FIRST_EX_LARGE_FETCH);
    if (search == INVALID_HANDLE_VALUE) {
        // The root of an empty drive has not even "." and "..".
        if (GetLastError() == ERROR_FILE_NOT_FOUND) {
            return std::vector<FolderEntry>();
        }
        return std::nullopt;
    }
    std::vector<FolderEntry> entries;
    do {
        const std::wstring_view name = found.cFileName;
        const DWORD attributes = found.dwFileAttributes;
        std::string known = utf8(found.cFileName);
        if (name == L"." || name == L".." || known.empty() ||
            (attributes & FILE_ATTRIBUTE_DEVICE)) {
            continue;
        }
        const bool hidden = (attributes & FILE_ATTRIBUTE_HIDDEN) != 0 || known.starts_with('.');
        entries.push_back({std::move(known), (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0, hidden});
    } while (FindNextFileW(search, &found));
    FindClose(search);
    return entries;
}

} // namespace turnpost
