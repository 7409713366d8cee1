#include "storage/OwnFile.h"

#include "files/FileError.h"
#include "files/Files.h"
#include "text/CodePage.h"
#include "text/Messages.h"

namespace turnpost {

void writeOwnFile(const std::string& path, const std::string& text) {
    // A single malformed name would make the whole file be read in another code page.
    if (!isUtf8(text)) {
        throw FileError(path, messages::ownFileNotUtf8);
    }
    const std::string bytes = toFileBytes(text);
    if (bytes.size() > maxOwnFileBytes) {
        throw FileError(path, messages::ownFileWouldBeTooLarge);
    }
    replaceFile(path, bytes);
}

} // namespace turnpost
