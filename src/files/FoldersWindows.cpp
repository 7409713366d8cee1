#include "files/FileHandle.h"
#include "files/Files.h"
#include "files/Folders.h"
#include "files/SystemFiles.h"
#include "text/Path.h"

namespace turnpost {

std::string programFolder() {
    std::wstring path(32768, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    return folderOfPath(fromNativePath(path));
}

std::string configurationFolder() {
    std::wstring path(32768, L'\0');
    path.resize(GetEnvironmentVariableW(L"APPDATA", path.data(), static_cast<DWORD>(path.size())));
    const std::filesystem::path folder(path);
    return folder.is_absolute() ? joinPath(fromNativePath(folder), "Nimbus Turnpost")
                                : std::string();
}

bool isFolderWritable(const std::string& folder) {
    // Asks for the right to add files without adding one: looking for the settings must change
    // nothing.
    const FileHandle opened(CreateFileW(toNativePath(folder).c_str(), FILE_ADD_FILE, shareAll,
                                        nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS,
                                        nullptr));
    return opened.isOpen() && kindOf(folder) == PathKind::Folder;
}

} // namespace turnpost
