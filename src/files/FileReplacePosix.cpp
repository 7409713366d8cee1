#include "files/Descriptor.h"
#include "files/FileError.h"
#include "files/Files.h"
#include "files/TemporaryPath.h"
#include "text/Path.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace turnpost {

namespace {

[[noreturn]] void fail(const std::string& path, int code) {
    throw FileError(path, std::error_code(code, std::generic_category()));
}

// The path that is replaced: the target of a link, or a new file in the folder by its on-disk
// spelling. Both are looked up without regard to case.
std::string targetOf(const std::string& path) {
    const std::string folder = folderOfPath(path);
    std::string target =
        findPath(path).value_or(joinPath(findPath(folder).value_or(folder), nameOfPath(path)));
    for (int depth = 0; depth < 40; ++depth) {
        std::error_code error;
        const auto link = std::filesystem::read_symlink(toNativePath(target), error);
        if (error) {
            return target;
        }
        const std::string next = fromNativePath(link);
        target = link.is_absolute() ? next : joinPath(folderOfPath(target), next);
    }
    fail(path, ELOOP);
}

// The temporary file while it is being written. Deleted unless it was renamed to the final name.
class TemporaryFile {
  public:
    explicit TemporaryFile(const std::string& target)
        : targetPath_(target), path_(temporaryPathBeside(target)),
          file_(open(path_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666)) {
        check(file_.get() >= 0);
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile() {
        if (!inPlace_) {
            unlink(path_.c_str());
        }
    }

    // Only a privileged user may give a file away, its group only to a member, and some file
    // systems have one owner and mode for all their files. So a refusal counts only where others
    // could read what they could not read before.
    void takeOwnerAndMode(const struct stat& old) const {
        struct stat made {};
        check(fstat(file_.get(), &made) == 0);
        if ((made.st_uid != old.st_uid || made.st_gid != old.st_gid) &&
            fchown(file_.get(), old.st_uid, old.st_gid) != 0) {
            [[maybe_unused]] const int given = fchown(file_.get(), made.st_uid, old.st_gid);
        }
        check(fstat(file_.get(), &made) == 0);
        mode_t wanted = old.st_mode & 07777U;
        if (made.st_gid != old.st_gid && (wanted & S_IROTH) == 0) {
            wanted &= ~static_cast<mode_t>(S_IRWXG);
        }
        if ((made.st_mode & 07777U) != wanted && fchmod(file_.get(), wanted) != 0) {
            check((made.st_mode & ~wanted & (S_IRGRP | S_IROTH)) == 0);
        }
    }

    void write(const std::string& bytes) const {
        size_t done = 0;
        while (done < bytes.size()) {
            const ssize_t count = ::write(file_.get(), bytes.data() + done, bytes.size() - done);
            check(count >= 0 || errno == EINTR);
            done += count > 0 ? static_cast<size_t>(count) : 0;
        }
        check(fsync(file_.get()) == 0);
    }

    void moveIntoPlace() {
        check(file_.close());
        check(rename(path_.c_str(), targetPath_.c_str()) == 0);
        inPlace_ = true;
    }

  private:
    void check(bool good) const {
        if (!good) {
            fail(targetPath_, errno);
        }
    }

    std::string targetPath_;
    std::string path_;
    Descriptor file_;
    bool inPlace_ = false;
};

// Makes the new name durable. The file itself is whole either way, so a refusal is no failure.
void flushFolder(const std::string& folder) {
    const Descriptor opened(
        open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    fsync(opened.get());
}

} // namespace

// A file that is open elsewhere can be replaced here; no retry is needed.
void replaceFile(const std::string& path, const std::string& bytes, const RetryLimits&) {
    requireNoOtherKind(path);
    const std::string target = targetOf(path);
    requireNoOtherKind(target);
    struct stat old {};
    const bool exists = stat(target.c_str(), &old) == 0;
    // Renaming would replace even a write-protected file, which its owner has locked on purpose.
    if (exists && faccessat(AT_FDCWD, target.c_str(), W_OK, AT_EACCESS) != 0) {
        fail(target, errno);
    }
    TemporaryFile temporary(target);
    if (exists) {
        temporary.takeOwnerAndMode(old);
    }
    temporary.write(bytes);
    temporary.moveIntoPlace();
    flushFolder(folderOfPath(target));
}

} // namespace turnpost
