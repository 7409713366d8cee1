#pragma once

#include "compose/AttachmentChoices.h"
#include "compose/MessageTemplate.h"
#include "compose/SendReport.h"
#include "compose/Transport.h"
#include "roster/GameDetails.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace turnpost {

/// What the rules read, as it stands at the moment a row is reached.
struct DispatchInputs {
    const GameDetails& game;
    const MessageTemplate& message;
    const AttachmentChoices& attachments;
};

/// The current row's texts after placeholder substitution.
struct RowMessage {
    std::string PlayerBody;
    std::string PlayerSubject;
};

/// What the files of one message may have together, in bytes. Few mail servers take half of it.
inline constexpr std::uintmax_t maxAttachedBytes = std::uintmax_t{64} << 20;

/// Takes one file of a row that gets a message, in sending order: turn file, universe file, extra
/// files. Throws FileError when the file cannot be read.
using AttachFile = std::function<void(const std::string& path)>;

/// The universe file that belongs to a turn file: the folder, then the turn file's name up to its
/// first ".", then "XY".
std::string universeFile(const std::string& gamePath, const std::string& gameFile);

/// Decides one row (0 to 15): writes its line of the report, hands every file to `attach`, and
/// gives the row's texts. Nothing when the row is refused; its line then says every reason that the
/// transport looks for. No file is attached before all else has been decided: a message of any size
/// that is refused costs no memory. Files already attached when a later one cannot be read must be
/// thrown away.
std::optional<RowMessage> applyRowRules(const DispatchInputs& inputs, int row, Transport transport,
                                        const AttachFile& attach, std::string& ReportLine);

} // namespace turnpost
