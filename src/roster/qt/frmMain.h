#pragma once

#include "app/Application.h"
#include "platform/qt/Form.h"
#include "roster/qt/RosterRows.h"

class QAction;
class QMenu;
class QMenuBar;
class QRadioButton;

namespace turnpost {

class FilledBar;

/// The main window: shows the shared values and hands every command on.
class frmMain final : public Form {
  public:
    explicit frmMain(Application& usedApplication);

    /// Brings every control in step with the shared values.
    void showValues();

    /// Sets the length of the progress bar, from 0 to 1 of its track.
    void setProgress(double fraction);

    /// See SendDisplay::showBreak.
    void showBreak(const SendReport& lines);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

  private:
    // In the order of reading, which is that of Tab too: the menus, then line by line.
    void addMenus();
    void addNameLine();
    void addPathLine();
    void addProgress();
    void addSelection();
    void addHeadings();
    QAction* addItem(QMenu* menu, const char* name, const QString& caption,
                     void (frmMain::*handler)());

    void GameChoose_Click() { application.findGame(); }
    void PlaySel_MouseDown(int index);
    void butSend_Click() { application.butSend_Click(); }
    void butSend2_Click() { application.butSend2_Click(); }
    void Command1_Click() { application.sendByMailSystem(winId()); }
    void butAtch_Click() { application.editAttachments(); }
    void mnuNew_Click() { application.newGame(); }
    void mnuOpen_Click() { application.openGame(); }
    void mnuSave_Click() { application.saveGame(); }
    void mnuExit_Click() { close(); }
    void mnuEmailSets_Click() { application.editEmailSettings(); }
    void mnuMsg_Click() { application.editMessage(); }
    void mnuStoredG_Click(int slot) { application.loadStoredGame(slot); }
    void mnuStoredCon_Click() { application.configureStoredGames(); }
    void mnuAbout_Click() { application.showAbout(); }

    Application& application;
    QMenuBar* menuBar = nullptr;
    QLineEdit* GameName = nullptr;
    QLineEdit* txtGamePath = nullptr;
    QLabel* txtYear = nullptr;
    FilledBar* Shape1 = nullptr;
    QPushButton* Command1 = nullptr;
    QPushButton* butSend = nullptr;
    std::array<QRadioButton*, 3> PlaySel{};
    std::array<QAction*, 4> mnuStoredG{};
    RosterRows* rows = nullptr;
    bool closing = false;
};

} // namespace turnpost
