#pragma once

#include "compose/AttachmentChoices.h"
#include "compose/MessageTemplate.h"
#include "compose/SendReport.h"
#include "dialogs/FilePicker.h"
#include "roster/GameDetails.h"
#include "storage/Settings.h"

namespace turnpost {

/// The shared application values: one copy each, for the whole run.
struct SharedValues {
    Settings settings;
    GameDetails game;
    MessageTemplate message;
    AttachmentChoices attachments;
    SendReport report;
    FilePicker picker;
};

} // namespace turnpost
