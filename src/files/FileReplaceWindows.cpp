#include "files/FileHandle.h"
#include "files/Files.h"
#include "files/TemporaryPath.h"
#include "text/Path.h"

#include <thread>
#include <vector>

namespace turnpost {

namespace {

// The marks that a file can be made with.
constexpr DWORD keptMarks = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_ARCHIVE |
                            FILE_ATTRIBUTE_NOT_CONTENT_INDEXED | FILE_ATTRIBUTE_ENCRYPTED;

// Where the bytes really have to go: the file behind a link.
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
    const DWORD marks = GetFileAttributesW(toNativePath(path).c_str());
    if (marks != INVALID_FILE_ATTRIBUTES && (marks & FILE_ATTRIBUTE_REPARSE_POINT) != 0) {
        // A link that leads nowhere, or nobody knows where.
        throwSystemError(path, code);
    }
    return path;
}

// Empty when the file system has none to tell; a file in the same folder then gets the same.
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

// The system refuses to rename over an open file with the first of these.
bool mayBeHeld(DWORD code) {
    return code == ERROR_ACCESS_DENIED || code == ERROR_SHARING_VIOLATION ||
           code == ERROR_LOCK_VIOLATION || code == ERROR_USER_MAPPED_FILE;
}

bool isNothingThere(DWORD code) {
    return code == ERROR_FILE_NOT_FOUND || code == ERROR_PATH_NOT_FOUND;
}

// The neighbour while it is being written; removed again unless it got its final name.
class TemporaryFile {
  public:
    TemporaryFile(const std::string& namedPath, const std::string& target)
        : named_(namedPath), to_(toNativePath(target).wstring()),
          from_(toNativePath(temporaryPathBeside(target)).wstring()), file_(create()) {}
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile() {
        file_.close();
        if (!inPlace_) {
            DeleteFileW(from_.c_str());
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
        while (MoveFileExW(from_.c_str(), to_.c_str(),
                           MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) == 0) {
            const DWORD code = GetLastError();
            if (!mayBeHeld(code) || std::chrono::steady_clock::now() >= end) {
                throwSystemError(named_, isHeld() ? ERROR_SHARING_VIOLATION : code);
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
    // With the permissions and marks of the file to be replaced, from the beginning: what nobody
    // else could read, nobody else can while it is written.
    HANDLE create() const {
        const DWORD marks = GetFileAttributesW(to_.c_str());
        const bool exists = marks != INVALID_FILE_ATTRIBUTES;
        require(exists || isNothingThere(GetLastError()));
        // Renaming might replace even a write-protected file, which its owner has locked on
        // purpose.
        if (exists && (marks & FILE_ATTRIBUTE_READONLY) != 0) {
            throwSystemError(named_, ERROR_ACCESS_DENIED);
        }
        auto permissions = exists ? permissionsOf(to_) : std::vector<char>();
        SECURITY_ATTRIBUTES security{sizeof security, permissions.data(), FALSE};
        const HANDLE made =
            CreateFileW(from_.c_str(), GENERIC_WRITE, 0, permissions.empty() ? nullptr : &security,
                        CREATE_NEW, exists ? marks & keptMarks : FILE_ATTRIBUTE_NORMAL, nullptr);
        require(made != INVALID_HANDLE_VALUE);
        return made;
    }

    // The move's own refusal does not tell that from a lack of permission.
    bool isHeld() const {
        const FileHandle opened(
            CreateFileW(to_.c_str(), DELETE, shareAll, nullptr, OPEN_EXISTING, 0, nullptr));
        return !opened.isOpen() && GetLastError() == ERROR_SHARING_VIOLATION;
    }

    void require(bool good) const {
        if (!good) {
            throwSystemError(named_, GetLastError());
        }
    }

    std::string named_;
    std::wstring to_;
    std::wstring from_;
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
