#include "platform/FileError.h"
#include "platform/Files.h"
#include "platform/Folders.h"
#include "platform/Path.h"

#include <windows.h>

namespace turnpost {

std::string programFolder() {
    std::wstring path(32768, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    return folderOfPath(fromNativePath(path));
}

std::string configurationFolder() {
    std::wstring path(32768, L'\0');
    path.resize(GetEnvironmentVariableW(L"APPDATA", path.data(), static_cast<DWORD>(path.size())));
    return path.empty() ? std::string() : joinPath(fromNativePath(path), "Nimbus Turnpost");
}

bool isFolderWritable(const std::string& folder) {
    // Access lists and virtualised folders make a real attempt the only honest test.
    const std::wstring probe = toNativePath(joinPath(folder, "~turnpost-probe.tmp")).wstring();
    const HANDLE handle =
        CreateFileW(probe.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                    FILE_ATTRIBUTE_TEMPORARY | FILE_FLAG_DELETE_ON_CLOSE, nullptr);
    if (handle == INVALID_HANDLE_VALUE) {
        return false;
    }
    CloseHandle(handle);
    return true;
}

} // namespace turnpost
