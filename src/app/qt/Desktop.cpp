#include "app/qt/Desktop.h"

#include "app/qt/MainClosing.h"
#include "dialogs/qt/frmAbout.h"
#include "dialogs/qt/frmAtch.h"
#include "dialogs/qt/frmMessage.h"
#include "dialogs/qt/frmOpen.h"
#include "dialogs/qt/frmSettings.h"
#include "dialogs/qt/frmStore.h"
#include "files/Folders.h"
#include "smtp/qt/frmProgRept.h"
#include "text/Version.h"
#include "text/qt/QtText.h"
#include "widgets/Accessibility.h"
#include "widgets/ClearFrames.h"
#include "widgets/QtMessageBox.h"

#include <QApplication>
#include <QIcon>

namespace turnpost {

namespace {

// The owner for a new modal window: the modal window in front, so that the new one does not open
// behind it; else the main window, even before it is shown, so that the dialog gets no task-bar
// entry.
QWidget* frontWindow(frmMain* main) {
    QWidget* modal = QApplication::activeModalWidget();
    if (modal != nullptr) {
        return modal;
    }
    main->winId();
    return main;
}

} // namespace

void Desktop::prepareToolkit() {
    QApplication::setApplicationName(applicationTitle);
    QApplication::setDesktopFileName("net.nimbusturnpost.Turnpost");
    installAccessibility();
    // The layouts are exact to the pixel; the margins of other styles would clip captions.
    QApplication::setStyle(new ClearFrames);
    QApplication::setQuitOnLastWindowClosed(false);
    // The 256-pixel icon is left out: no window shows it, and decoding it takes as long as all the
    // others together.
    QIcon icon;
    for (const int size : {16, 24, 32, 48, 64, 128}) {
        icon.addFile(QString(":/icons/turnpost-%1.png").arg(size));
    }
    QApplication::setWindowIcon(icon);
}

ProgramFolders Desktop::ownFolders() {
    return {programFolder(), configurationFolder()};
}

Desktop::Desktop(const ProgramFolders& folders, const Application::MailSystemMaker& makeMail)
    : application_(std::make_unique<Application>(*this, Winsock1, folders, makeMail)),
      main_(std::make_unique<frmMain>(*application_, playMainClosing)) {}

void Desktop::setCaption(const std::string& caption) {
    main_->setWindowTitle(toQt(caption));
}

void Desktop::showValues() {
    const auto& games = application_->values().settings.StoredGames;
    main_->showValues({games[0].StoredGameName, games[1].StoredGameName, games[2].StoredGameName,
                       games[3].StoredGameName});
}

void Desktop::showMainWindow() {
    main_->show();
}

void Desktop::setProgress(double fraction) {
    main_->setProgress(fraction);
}

void Desktop::showBreak(const SendReport& lines) {
    main_->showNotes(lines);
}

void Desktop::show(const std::string& text) {
    showMessageBox(frontWindow(main_.get()), text);
}

void Desktop::openEmailSettings() {
    const auto store = [this](const std::string& name, const std::string& email,
                              const std::string& server) {
        application_->storeEmailSettings(name, email, server);
    };
    frmSettings(frontWindow(main_.get()), application_->values().settings, store).exec();
}

void Desktop::openMessageEditor() {
    const auto store = [this](const MessageTemplate& message) {
        application_->storeMessage(message);
    };
    frmMessage(frontWindow(main_.get()), application_->values().message, store).exec();
}

void Desktop::openFilePicker() {
    const frmOpen::Answer answer{
        [this](const std::string& folder, const std::string& file, bool asDefaultGame) {
            application_->pickFile(folder, file, asDefaultGame);
        },
        [this] { application_->cancelPicker(); }};
    const SharedValues& values = application_->values();
    frmOpen(frontWindow(main_.get()), values.picker, values.game.GamePath,
            application_->folders().program, answer)
        .exec();
}

void Desktop::openAttachments() {
    const auto pickFile = [this] { return application_->pickExtraAttachment(); };
    const auto store = [this](const AttachmentChoices& choices) {
        application_->storeAttachments(choices);
    };
    frmAtch(frontWindow(main_.get()), application_->values().attachments, pickFile, store).exec();
}

void Desktop::openStoredGames() {
    const auto store = [this](const frmStore::Slots& games) {
        application_->storeStoredGames(games);
    };
    frmStore(frontWindow(main_.get()), application_->values().settings.StoredGames,
             application_->currentGameToStore(), store)
        .exec();
}

void Desktop::openAbout() {
    frmAbout(frontWindow(main_.get())).exec();
}

void Desktop::openReport() {
    frmProgRept(frontWindow(main_.get()), application_->values().report).exec();
}

} // namespace turnpost
