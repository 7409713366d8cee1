#pragma once

#include "app/AppWindows.h"
#include "app/Application.h"
#include "net/qt/TcpSocket.h"
#include "roster/qt/frmMain.h"

#include <memory>

namespace turnpost {

/// The whole program on a desktop: the application, its socket and its windows.
class Desktop final : public AppWindows {
  public:
    /// Sets the application's name, icon and style, and lets only the main window end it: a dialog
    /// may close before that window is shown. Call once, before the first window.
    static void prepareToolkit();

    /// The folders of the running program and of the user's configuration.
    static ProgramFolders ownFolders();

    explicit Desktop(const ProgramFolders& folders = ownFolders(),
                     const Application::MailSystemMaker& makeMail = makeMailSystem);

    void startUp() { application_->startUp(); }
    Application& app() { return *application_; }
    frmMain& mainWindow() { return *main_; }

    void setCaption(const std::string& caption) override;
    void showValues() override;
    void showMainWindow() override;
    void setProgress(double fraction) override;
    void showBreak(const SendReport& lines) override;
    void show(const std::string& text) override;
    void openEmailSettings() override;
    void openMessageEditor() override;
    void openFilePicker() override;
    void openAttachments() override;
    void openStoredGames() override;
    void openAbout() override;
    void openReport() override;

  private:
    TcpSocket Winsock1;
    std::unique_ptr<Application> application_;
    std::unique_ptr<frmMain> main_;
};

} // namespace turnpost
