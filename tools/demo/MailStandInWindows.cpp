#include "MailStandIn.h"

#include "mapi/SimpleMapiMessages.h"
#include "mapi/SimpleMapiSession.h"
#include "platform/CodePage.h"
#include "platform/Files.h"
#include "platform/Folders.h"
#include "platform/Path.h"

#include <algorithm>

namespace turnpost::demo {

// A mail client of our own, which lies beside the demo and writes down what it is asked.
Application::MailSystemMaker recordingMailSystem(const std::string& folder) {
    SetEnvironmentVariableW(L"TURNPOST_RECORD", toNativePath(joinPath(folder, "mapi.txt")).c_str());
    return [](const Settings&) {
        const auto mapi = std::make_shared<SimpleMapi>(
            toUtf16(joinPath(programFolder(), "RecordingProvider.dll")));
        return MailSystem{std::make_unique<SimpleMapiSession>(mapi),
                          std::make_unique<SimpleMapiMessages>(mapi)};
    };
}

bool wasHanded(const std::string& folder, const std::string& address,
               const std::vector<std::string>& files) {
    const std::string record = readFile(joinPath(folder, "mapi.txt"));
    const size_t begin = record.find("address=" + address);
    const std::string message = record.substr(begin, record.find("subject=", begin) - begin);
    return begin != std::string::npos &&
           std::all_of(files.begin(), files.end(), [&](const std::string& name) {
               return message.find("path=" + joinPath(joinPath(folder, "game"), name) +
                                   " name=" + name + "\n") != std::string::npos;
           });
}

} // namespace turnpost::demo
