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

/// What the rules read: references, so that each row uses the values of its own moment.
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

/// Largest total size of one message's files, in bytes. Few mail servers accept even half of it.
inline constexpr std::uintmax_t maxAttachedBytes = std::uintmax_t{64} << 20;

/// Called for each file of a row that gets a message, in sending order: turn file, universe file,
/// extra files. Throws FileError when it cannot read the file.
using AttachFile = std::function<void(const std::string& path)>;

/// The universe file that belongs to a turn file: the folder, then the turn file's name up to its
/// first ".", then "XY".
std::string universeFile(const std::string& gamePath, const std::string& gameFile);

/// Decides whether a row (0 to 15) gets a message. If so, passes its files to `attach` and returns
/// its texts. Returns nothing when the row is refused; `ReportLine` then holds every reason that
/// the transport checks for. Files are attached only after every check has passed, so that a
/// refused message costs no memory. If one of them can no longer be read, the row is refused;
/// discard the files attached before it.
std::optional<RowMessage> applyRowRules(const DispatchInputs& inputs, int row, Transport transport,
                                        const AttachFile& attach, std::string& ReportLine);

} // namespace turnpost
