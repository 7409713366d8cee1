#pragma once

#include "roster/MainCommands.h"
#include "roster/qt/RosterRows.h"
#include "widgets/Form.h"

#include <array>
#include <functional>

class QAction;
class QMenu;
class QMenuBar;
class QRadioButton;

namespace turnpost {

class FilledBar;

/// The main window: shows the game and passes every command on to `commands`.
class frmMain final : public Form {
  public:
    /// `playClosing` is called with the window when the host closes it, before the program ends.
    frmMain(MainCommands& commands, std::function<void(QWidget*)> playClosing);

    /// Shows the game in every control, and these names in the Stored Games menu.
    void showValues(const std::array<std::string, 4>& storedGames);

    /// Sets the length of the progress bar, from 0 to 1 of its track.
    void setProgress(double fraction);

    /// See RosterRows::showNotes.
    void showNotes(const std::array<std::string, rowCount>& notes) { rows_->showNotes(notes); }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

  private:
    // In reading order, which is also the Tab order.
    void addMenus();
    void addNameLine();
    void addPathLine();
    void addProgress();
    void addSelection();
    void addHeadings();
    QAction* addItem(QMenu* menu, const char* name, const QString& caption,
                     void (frmMain::*handler)());

    void GameChoose_Click() { commands_.findGame(); }
    void PlaySel_MouseDown(int index);
    void butSend_Click() { commands_.butSend_Click(); }
    void butSend2_Click() { commands_.takeSendStep(); }
    void Command1_Click() { commands_.sendByMailSystem(winId()); }
    void butAtch_Click() { commands_.editAttachments(); }
    void mnuNew_Click() { commands_.newGame(); }
    void mnuOpen_Click() { commands_.openGame(); }
    void mnuSave_Click() { commands_.saveGame(); }
    void mnuExit_Click() { close(); }
    void mnuEmailSets_Click() { commands_.editEmailSettings(); }
    void mnuMsg_Click() { commands_.editMessage(); }
    void mnuStoredG_Click(int slot) { commands_.loadStoredGame(slot); }
    void mnuStoredCon_Click() { commands_.configureStoredGames(); }
    void mnuAbout_Click() { commands_.showAbout(); }

    MainCommands& commands_;
    std::function<void(QWidget*)> playClosing_;
    QMenuBar* menuBar_ = nullptr;
    QLineEdit* GameName = nullptr;
    QLineEdit* txtGamePath = nullptr;
    QLabel* txtYear = nullptr;
    FilledBar* Shape1 = nullptr;
    QPushButton* Command1 = nullptr;
    QPushButton* butSend = nullptr;
    std::array<QRadioButton*, 3> PlaySel{};
    std::array<QAction*, 4> mnuStoredG{};
    RosterRows* rows_ = nullptr;
    bool closing_ = false;
};

} // namespace turnpost
