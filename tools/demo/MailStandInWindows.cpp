#include "MailStandIn.h"

#include "files/Files.h"
#include "mapi/MailSystem.h"
#include "text/Path.h"

#include <algorithm>
#include <windows.h>

namespace turnpost::demo {

// The mail client that tools/wine-prefix has set up records each request.
Application::MailSystemMaker recordingMailSystem(const std::string& folder) {
    SetEnvironmentVariableW(L"TURNPOST_RECORD", toNativePath(joinPath(folder, "mapi.txt")).c_str());
    return makeMailSystem;
}

bool wasHanded(const std::string& folder, const std::string& address,
               const std::vector<std::string>& files) {
    const std::string record = readFile(joinPath(folder, "mapi.txt"));
    const std::string game = joinPath(fromNativePath(pathParts(folder).make_preferred()), "game");
    const size_t begin = record.find("address=SMTP:" + address);
    if (begin == std::string::npos) {
        return false;
    }
    const std::string message = record.substr(begin, record.find("subject=", begin) - begin);
    return std::all_of(files.begin(), files.end(), [&](const std::string& name) {
        return message.find("path=" + joinPath(game, name) + " name=NULL\n") != std::string::npos;
    });
}

} // namespace turnpost::demo
