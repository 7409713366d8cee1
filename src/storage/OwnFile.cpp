#include "storage/OwnFile.h"

#include "platform/CodePage.h"
#include "platform/FileError.h"
#include "platform/Files.h"
#include "platform/Messages.h"

namespace turnpost {

void writeOwnFile(const std::string& path, const std::string& text) {
    // One such name would make all of the file be read as another code page.
    if (!isUtf8(text)) {
        throw FileError(path, messages::ownFileNotUtf8());
    }
    const std::string bytes = toFileBytes(text);
    if (bytes.size() > mostOwnFileBytes) {
        throw FileError(path, messages::ownFileWouldBeTooLarge());
    }
    replaceFile(path, bytes);
}

} // namespace turnpost
