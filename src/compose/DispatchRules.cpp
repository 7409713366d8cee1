#include "compose/DispatchRules.h"

#include "compose/AddressFault.h"
#include "compose/ExpandTemplate.h"
#include "files/FileError.h"
#include "files/Files.h"
#include "text/Messages.h"

#include <stdexcept>
#include <vector>

namespace turnpost {

namespace {

struct FoundFile {
    std::string path;
    std::string unreadableText;
};

class RowRules {
  public:
    RowRules(Transport transport, std::string& line) : transport_(transport), ReportLine(line) {
        ReportLine.clear();
    }

    void checkPlayer(const PlayerSlot& row) {
        if (row.IncludePlayer == 0) {
            refuse(messages::playerSkipped);
        } else if (row.PlayerEmail.empty()) {
            refuse(messages::noEmailAddress);
        }
        refusedAsPlayer_ = RowRefused;
        if (!RowRefused) {
            checkAddresses(row);
        }
    }

    void checkGameFile(const std::string& path, const std::string& notFound,
                       const std::string& unreadable) {
        if (checksMore()) {
            // A path of another system would be looked for in the current folder.
            checkFile(isAbsolutePath(path) ? path : std::string(), notFound, unreadable);
        }
    }

    // MAPI checks the extra files even of a player whom it has refused.
    void checkExtraFile(const std::string& path, int entry) {
        if (!path.empty() && (transport_ == Transport::Mapi || !refusedAsPlayer_)) {
            checkFile(path, messages::extraFileNotFound(entry),
                      messages::extraFileUnreadable(entry));
        }
    }

    void checkSize() {
        if (checksMore() && foundBytes_ > maxAttachedBytes) {
            refuse(messages::messageTooLong);
        }
    }

    // Stops at the first file that can no longer be read.
    void attachFiles(const AttachFile& attach) {
        for (const FoundFile& file : files_) {
            try {
                attach(file.path);
            } catch (const FileError&) {
                refuse(file.unreadableText);
                return;
            }
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
    void checkAddresses(const PlayerSlot& row) {
        if (const auto fault = addressFault(row.PlayerEmail, transport_)) {
            refuse(messages::addressUnsendable(fault->words));
        }
        // SMTP only names the alternate address in the message and sends nothing to it.
        if (transport_ == Transport::Mapi) {
            if (const auto fault = addressFault(row.AltEmail, transport_)) {
                refuse(messages::alternateAddressUnsendable(fault->words));
            }
        }
    }

    // SMTP lists every fault of a player whom it would write to; MAPI stops at the first.
    bool checksMore() const {
        return transport_ == Transport::Smtp ? !refusedAsPlayer_ : !RowRefused;
    }

    void checkFile(const std::string& path, const std::string& notFound,
                   const std::string& unreadable) {
        const auto found = findFile(path);
        if (!found) {
            refuse(notFound);
            return;
        }
        const auto size = fileSize(*found);
        if (!size || !isReadable(path)) {
            refuse(unreadable);
            return;
        }
        foundBytes_ += *size;
        files_.push_back({path, unreadable});
    }

    static bool isReadable(const std::string& path) {
        try {
            readFile(path, 1);
            return true;
        } catch (const FileError&) {
            return false;
        }
    }

    Transport transport_;
    std::string& ReportLine;
    std::vector<FoundFile> files_;
    std::uintmax_t foundBytes_ = 0;
    bool RowRefused = false;
    bool refusedAsPlayer_ = false;
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
    const PlayerSlot& player = game.row(row);
    RowRules rules(transport, ReportLine);
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
    rules.checkSize();
    RowMessage message;
    if (!rules.refused()) {
        const auto expand = [&](const std::string& text) {
            return ExpandTemplate(text, game.GameName, row, player.PlayerName, game.GameYear);
        };
        try {
            message.PlayerBody = expand(inputs.message.MessageBody);
            message.PlayerSubject = expand(inputs.message.MessageSubject);
            rules.attachFiles(attach);
        } catch (const std::length_error&) {
            rules.refuse(messages::messageTooLong);
        }
    }
    return rules.refused() ? std::nullopt : std::optional(std::move(message));
}

} // namespace turnpost
