#include "storage/OwnFile.h"

#include "platform/CodePage.h"
#include "platform/FileError.h"
#include "platform/Files.h"
#include "platform/Messages.h"

namespace turnpost {

void writeOwnFile(const std::string& path, const std::string& text) {
    const std::string bytes = toFileBytes(text);
    if (bytes.size() > mostOwnFileBytes) {
        throw FileError(path, messages::ownFileWouldBeTooLarge());
    }
    replaceFile(path, bytes);
}

} // namespace turnpost
