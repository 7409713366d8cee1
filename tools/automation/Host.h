#pragma once

#include "app/qt/Desktop.h"
#include "automation/ModalWatcher.h"

#include <QTemporaryDir>
#include <map>
#include <string>

class QLineEdit;

namespace turnpost::automation {

/// The host at the desk: the whole program in a folder of its own, used by real clicks and keys.
class Host {
  public:
    /// The program's folder is `folder`, or a temporary one when that is empty.
    explicit Host(const std::string& folder = {},
                  const Application::MailSystemMaker& makeMail = makeMailSystem);

    /// A settings file for the program to find at start-up, with this server.
    void saveSettings(const std::string& smtpServer) const;

    Desktop& desktop() { return program_; }
    frmMain& window() { return program_.mainWindow(); }
    ModalWatcher& watcher() { return modals_; }
    std::string folder() const { return programFolder_; }

    /// Hands the windows over to a real person.
    void release() { modals_.stop(); }

    // Controls are named as in the forms; rows as "PlayerName(0)". `form` is the main window unless
    // given. Text is typed over what the box holds; a line feed in it is the Return key.
    void click(const QString& button, QWidget* form = nullptr);
    void type(const QString& box, const QString& text, QWidget* form = nullptr);
    void chooseMenu(const QString& item);
    QString textOf(const QString& box);

    /// In the open file picker, goes to the folder (none: stays) and selects the file, by clicks.
    void selectFile(QWidget& picker, const QString& folder, const QString& file);

    /// Expects the file picker, selects the file in the folder it opens in, and loads it.
    void expectPicker(const QString& file);

    /// "Find Game" with the picker opening in the program's folder: chooses GAME.HST.
    void findGame();

    /// Starts the program with this server in a game of these players (turn file lengths in bytes);
    /// player N gets the address pN@example.org. Gives the turn files' contents by player.
    std::map<int, std::string> startGame(const std::string& smtpServer,
                                         const std::map<int, size_t>& lengths);

  private:
    QWidget* formOr(QWidget* form) { return form == nullptr ? &window() : form; }

    QTemporaryDir temporary_;
    std::string programFolder_;
    Desktop program_;
    ModalWatcher modals_;
};

/// The control of this name; ends the test by an exception when there is none.
template <typename Control> Control* findControl(QWidget& form, const QString& name) {
    auto* control = form.findChild<Control*>(name);
    if (control == nullptr) {
        throw std::runtime_error("no control " + name.toStdString());
    }
    return control;
}

} // namespace turnpost::automation
