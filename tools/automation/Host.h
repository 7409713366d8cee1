#pragma once

#include "app/qt/Desktop.h"
#include "automation/ModalWatcher.h"

#include <QTemporaryDir>
#include <map>
#include <string>

class QLineEdit;

namespace turnpost::automation {

/// An automated host: the whole program in a folder of its own, used by real clicks and keys.
class Host {
  public:
    /// The program's folder is `folder`, or a temporary one if `folder` is empty.
    explicit Host(const std::string& folder = {},
                  const Application::MailSystemMaker& makeMail = makeMailSystem);

    /// Writes a settings file with this server, for the program to read at start-up.
    void saveSettings(const std::string& smtpServer) const;

    Desktop& desktop() { return program_; }
    frmMain& window() { return program_.mainWindow(); }
    ModalWatcher& watcher() { return modals_; }
    std::string folder() const { return programFolder_; }

    /// From now on a real person uses the windows.
    void release() { modals_.stop(); }

    // Controls have the names of the forms; those of a row such as "PlayerName(0)". `form` is the
    // main window by default. Typing replaces the text of the box; a line feed is the Return key.
    void click(const QString& button, QWidget* form = nullptr);
    void type(const QString& box, const QString& text, QWidget* form = nullptr);
    void chooseMenu(const QString& item);
    QString textOf(const QString& box);

    /// In the open file picker, goes to the folder (if one is given) and selects the file, by
    /// clicks.
    void selectFile(QWidget& picker, const QString& folder, const QString& file);

    /// Expects the file picker, selects the file in the folder it opens in, and loads it.
    void expectPicker(const QString& file);

    /// "Find Game" with the picker opening in the program's folder: chooses GAME.HST.
    void findGame();

    /// Starts the program with this server in a game of these players (turn file lengths in bytes).
    /// Player N gets the address pN@example.org. Returns the turn files' contents by player.
    std::map<int, std::string> startGame(const std::string& smtpServer,
                                         const std::map<int, size_t>& lengths);

  private:
    QWidget* formOr(QWidget* form) { return form == nullptr ? &window() : form; }

    QTemporaryDir temporary_;
    std::string programFolder_;
    Desktop program_;
    ModalWatcher modals_;
};

/// The control of this name. Throws when there is none, which ends the test.
template <typename Control> Control* findControl(QWidget& form, const QString& name) {
    auto* control = form.findChild<Control*>(name);
    if (control == nullptr) {
        throw std::runtime_error("no control " + name.toStdString());
    }
    return control;
}

} // namespace turnpost::automation
