#include "MailStandIn.h"

#include "files/Files.h"
#include "mapi/SendmailMessages.h"
#include "mapi/SendmailSession.h"
#include "text/Path.h"

#include <QByteArray>
#include <algorithm>
#include <filesystem>

namespace turnpost::demo {

// A sendmail program that keeps each message under its first recipient's name.
Application::MailSystemMaker recordingMailSystem(const std::string& folder) {
    const std::string place = joinPath(folder, "mail-system");
    const std::string program = joinPath(place, "sendmail");
    std::filesystem::create_directories(place);
    replaceFile(program, "#!/bin/sh\n"
                         "while [ \"$1\" != -- ]; do shift; done\n"
                         "exec cat > \"${0%/*}/../mapi-$2.eml\"\n");
    std::filesystem::permissions(program, std::filesystem::perms::owner_all);
    return [place](const Settings& settings) {
        auto session = std::make_unique<SendmailSession>(std::vector<std::string>{place});
        auto messages = std::make_unique<SendmailMessages>(settings, *session);
        return MailSystem{std::move(session), std::move(messages)};
    };
}

bool wasHanded(const std::string& folder, const std::string& address,
               const std::vector<std::string>& files) {
    std::string message = readFile(joinPath(folder, "mapi-" + address + ".eml"));
    std::erase(message, '\n');
    return std::all_of(files.begin(), files.end(), [&](const std::string& name) {
        const std::string bytes = readFile(joinPath(joinPath(folder, "game"), name));
        return message.find(QByteArray::fromStdString(bytes).toBase64().toStdString()) !=
               std::string::npos;
    });
}

} // namespace turnpost::demo
