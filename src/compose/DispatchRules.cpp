#include "compose/DispatchRules.h"

#include "compose/ExpandTemplate.h"
#include "platform/FileError.h"
#include "platform/Files.h"
#include "platform/Messages.h"

#include <stdexcept>

namespace turnpost {

namespace {

class RowRules {
  public:
    RowRules(Transport usedTransport, const AttachFile& attachFile, std::string& line)
        : transport(usedTransport), attach(attachFile), ReportLine(line) {
        ReportLine.clear();
    }

    void checkPlayer(const PlayerSlot& row) {
        if (row.IncludePlayer == 0) {
            refuse(messages::playerSkipped());
        } else if (row.PlayerEmail.empty()) {
            refuse(messages::noEmailAddress());
        }
        refusedAsPlayer = RowRefused;
    }

    // SMTP lists every missing file of a player it would write to; MAPI stops at the first.
    void checkGameFile(const std::string& path, const std::string& notFound,
                       const std::string& unreadable) {
        if (transport == Transport::Smtp ? !refusedAsPlayer : !RowRefused) {
            checkFile(path, notFound, unreadable);
        }
    }

    // MAPI looks for extra files even for players it has refused.
    void checkExtraFile(const std::string& path, int entry) {
        if (!path.empty() && (transport == Transport::Mapi || !refusedAsPlayer)) {
            checkFile(path, messages::extraFileNotFound(entry),
                      messages::extraFileUnreadable(entry));
        }
    }

    bool refused() const { return RowRefused; }

    void refuse(const std::string& finding) {
        if (!ReportLine.empty()) {
            ReportLine += "\r\n";
        }
        ReportLine += finding;
        RowRefused = true;
    }

  private:
    void checkFile(const std::string& path, const std::string& notFound,
                   const std::string& unreadable) {
        if (!findFile(path)) {
            refuse(notFound);
            return;
        }
        try {
            attach(path);
        } catch (const FileError&) {
            refuse(unreadable);
        }
    }

    Transport transport;
    const AttachFile& attach;
    std::string& ReportLine;
    bool RowRefused = false;
    bool refusedAsPlayer = false;
};

} // namespace

std::string universeFile(const std::string& gamePath, const std::string& gameFile) {
    const size_t dot = gameFile.find('.');
    return gamePath + (dot == std::string::npos ? std::string() : gameFile.substr(0, dot + 1)) +
           "XY";
}

std::optional<RowMessage> applyRowRules(const DispatchInputs& inputs, int row, Transport transport,
                                        const AttachFile& attach, std::string& ReportLine) {
    const GameDetails& game = inputs.game;
    const PlayerSlot& player = game.rows[static_cast<size_t>(row)];
    RowRules rules(transport, attach, ReportLine);
    rules.checkPlayer(player);
    if (inputs.attachments.SendMFiles == 1) {
        rules.checkGameFile(game.GamePath + player.GameFile, messages::turnFileNotFound(row),
                            messages::turnFileUnreadable(row));
    }
    if (inputs.attachments.SendXYFile == 1) {
        rules.checkGameFile(universeFile(game.GamePath, player.GameFile),
                            messages::universeFileNotFound(), messages::universeFileUnreadable());
    }
    for (size_t entry = 0; entry < inputs.attachments.ExtraAttachments.size(); ++entry) {
        rules.checkExtraFile(inputs.attachments.ExtraAttachments[entry], static_cast<int>(entry));
    }
    if (rules.refused()) {
        return std::nullopt;
    }
    const auto expand = [&](const std::string& text) {
        return ExpandTemplate(text, game.GameName, row, player.PlayerName, game.GameYear);
    };
    try {
        RowMessage message;
        message.PlayerBody = expand(inputs.message.MessageBody);
        message.PlayerSubject = expand(inputs.message.MessageSubject);
        return message;
    } catch (const std::length_error&) {
        rules.refuse(messages::messageTooLong());
        return std::nullopt;
    }
}

} // namespace turnpost
