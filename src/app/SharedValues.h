#pragma once

#include "compose/AttachmentChoices.h"
#include "compose/MessageTemplate.h"
#include "compose/SendReport.h"
#include "dialogs/FilePicker.h"
#include "roster/GameDetails.h"
#include "storage/Settings.h"

#include <cstdint>
#include <string>

namespace turnpost {

/// The shared application values: one copy each, for the whole run.
struct SharedValues {
    Settings settings;
    GameDetails game;
    MessageTemplate message;
    AttachmentChoices attachments;
    SendReport report;
    FilePicker picker;
    /// 1 while start-up loads the default game.
    std::uint8_t LoadDefaultPending = 0;
    /// The game name that the stored games dialog puts into a slot.
    std::string GameNameToStore;
};

} // namespace turnpost
