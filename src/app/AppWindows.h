#pragma once

#include "compose/MessageBox.h"
#include "compose/SendDisplay.h"

#include <string>

namespace turnpost {

/// The windows as the commands see them. Every open... call is modal: it returns when the dialog
/// has been closed.
class AppWindows : public SendDisplay, public MessageBox {
  public:
    virtual void setCaption(const std::string& caption) = 0;

    /// Updates every box, label, tick and row of the main window, and the captions of the Stored
    /// Games menu, from the shared values.
    virtual void showValues() = 0;

    virtual void showMainWindow() = 0;
    virtual void openEmailSettings() = 0;
    virtual void openMessageEditor() = 0;
    virtual void openFilePicker() = 0;
    virtual void openAttachments() = 0;
    virtual void openStoredGames() = 0;
    virtual void openAbout() = 0;
};

} // namespace turnpost
