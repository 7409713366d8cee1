#include "mapi/SendmailSession.h"

#include "files/Files.h"
#include "text/Path.h"

#include <cstdlib>
#include <sstream>
#include <unistd.h>

namespace turnpost {

namespace {

// Case matters here, unlike for the game's files.
bool isProgram(const std::string& path) {
    std::error_code error;
    return std::filesystem::is_regular_file(toNativePath(path), error) &&
           access(path.c_str(), X_OK) == 0;
}

} // namespace

std::vector<std::string> sendmailFolders() {
    std::vector<std::string> folders{"/usr/sbin", "/usr/lib"};
    const char* searchPath = std::getenv("PATH");
    std::istringstream entries(searchPath == nullptr ? "" : searchPath);
    for (std::string folder; std::getline(entries, folder, ':');) {
        // An empty or relative entry leads to the current folder, which is not to be trusted.
        if (folder.starts_with('/')) {
            folders.push_back(folder);
        }
    }
    return folders;
}

SendmailSession::SendmailSession(std::vector<std::string> folders) : folders_(std::move(folders)) {}

void SendmailSession::SignOn() {
    path_.clear();
    for (const std::string& folder : folders_) {
        const std::string candidate = joinPath(folder, "sendmail");
        if (isProgram(candidate)) {
            path_ = candidate;
            return;
        }
    }
}

long SendmailSession::SessionID() const {
    return path_.empty() ? 0 : 1;
}

void SendmailSession::SignOff() {
    path_.clear();
}

} // namespace turnpost
