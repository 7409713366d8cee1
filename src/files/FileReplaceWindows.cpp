#include "files/FileHandle.h"
#include "files/Files.h"
#include "files/TemporaryPath.h"
#include "text/Path.h"

#include <thread>
#include <vector>

namespace turnpost {

namespace {

// The attributes that CreateFile can set.
constexpr DWORD keptAttributes = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM |
                                 FILE_ATTRIBUTE_ARCHIVE | FILE_ATTRIBUTE_NOT_CONTENT_INDEXED |
                                 FILE_ATTRIBUTE_ENCRYPTED;

// The file to replace: the target, if `path` is a link.
std::string targetOf(const std::string& path) {
    const FileHandle opened = openForQueries(path);
    DWORD code = GetLastError();
    if (opened.isOpen()) {
        std::wstring target(32768, L'\0');
        const auto size = static_cast<DWORD>(target.size());
        target.resize(GetFinalPathNameByHandleW(opened.get(), target.data(), size, 0));
        code = GetLastError();
        if (!target.empty()) {
            return fromNativePath(target);
        }
    }
    const DWORD attributes = GetFileAttributesW(toNativePath(path).c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0) {
        // The link leads nowhere, or its target cannot be found out.
        throwSystemError(path, code);
    }
    return path;
}

// Empty when the file system has no permissions; a new file in the same folder then has none
// either.
std::vector<char> permissionsOf(const std::wstring& file) {
    DWORD size = 0;
    GetFileSecurityW(file.c_str(), DACL_SECURITY_INFORMATION, nullptr, 0, &size);
    std::vector<char> permissions(size);
    if (GetFileSecurityW(file.c_str(), DACL_SECURITY_INFORMATION, permissions.data(), size,
                         &size) == 0) {
        permissions.clear();
    }
    return permissions;
}

// Windows gives the first of these codes when a rename would replace an open file.
bool mayBeOpenElsewhere(DWORD code) {
    return code == ERROR_ACCESS_DENIED || code == ERROR_SHARING_VIOLATION ||
           code == ERROR_LOCK_VIOLATION || code == ERROR_USER_MAPPED_FILE;
}

bool isNothingThere(DWORD code) {
    return code == ERROR_FILE_NOT_FOUND || code == ERROR_PATH_NOT_FOUND;
}

// The temporary file; removed again unless it was renamed into place.
class TemporaryFile {
  public:
    TemporaryFile(const std::string& requestedPath, const std::string& target)
        : requestedPath_(requestedPath), targetPath_(toNativePath(target).wstring()),
          temporaryPath_(toNativePath(temporaryPathBeside(target)).wstring()), file_(create()) {}
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile() {
        file_.close();
        if (!inPlace_) {
            DeleteFileW(temporaryPath_.c_str());
        }
    }

    void write(const std::string& bytes) {
        DWORD written = 0;
        const auto size = static_cast<DWORD>(bytes.size());
        require(WriteFile(file_.get(), bytes.data(), size, &written, nullptr) != 0 &&
                FlushFileBuffers(file_.get()) != 0);
        file_.close();
    }

    void moveIntoPlace(const RetryLimits& limits) {
        const auto end = std::chrono::steady_clock::now() + limits.timeout;
        while (MoveFileExW(temporaryPath_.c_str(), targetPath_.c_str(),
                           MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) == 0) {
            const DWORD code = GetLastError();
            if (!mayBeOpenElsewhere(code) || std::chrono::steady_clock::now() >= end) {
                throwSystemError(requestedPath_,
                                 isOpenElsewhere() ? ERROR_SHARING_VIOLATION : code);
            }
            if (limits.pause) {
                limits.pause();
            } else {
                std::this_thread::sleep_for(std::chrono::milliseconds(20));
            }
        }
        inPlace_ = true;
    }

  private:
    // Created with the old file's permissions and attributes, so that it is never more readable
    // than that file.
    HANDLE create() const {
        const DWORD attributes = GetFileAttributesW(targetPath_.c_str());
        const bool exists = attributes != INVALID_FILE_ATTRIBUTES;
        require(exists || isNothingThere(GetLastError()));
        // Renaming might replace even a write-protected file, which its owner has locked on
        // purpose.
        if (exists && (attributes & FILE_ATTRIBUTE_READONLY) != 0) {
            throwSystemError(requestedPath_, ERROR_ACCESS_DENIED);
        }
        auto permissions = exists ? permissionsOf(targetPath_) : std::vector<char>();
        SECURITY_ATTRIBUTES security{sizeof security, permissions.data(), FALSE};
        const HANDLE made = CreateFileW(
            temporaryPath_.c_str(), GENERIC_WRITE, 0, permissions.empty() ? nullptr : &security,
            CREATE_NEW, exists ? attributes & keptAttributes : FILE_ATTRIBUTE_NORMAL, nullptr);
        require(made != INVALID_HANDLE_VALUE);
        return made;
    }

    // A failed rename gives the same code for an open file and for missing permission.
    bool isOpenElsewhere() const {
        const FileHandle opened(
            CreateFileW(targetPath_.c_str(), DELETE, shareAll, nullptr, OPEN_EXISTING, 0, nullptr));
        return !opened.isOpen() && GetLastError() == ERROR_SHARING_VIOLATION;
    }

    void require(bool good) const {
        if (!good) {
            throwSystemError(requestedPath_, GetLastError());
        }
    }

    std::string requestedPath_;
    std::wstring targetPath_;
    std::wstring temporaryPath_;
    FileHandle file_;
    bool inPlace_ = false;
};

} // namespace

void replaceFile(const std::string& path, const std::string& bytes, const RetryLimits& limits) {
    requireNoOtherKind(path);
    TemporaryFile temporary(path, targetOf(path));
    temporary.write(bytes);
    temporary.moveIntoPlace(limits);
}

} // namespace turnpost
