#pragma once

#include "app/Application.h"
#include "dialogs/FolderList.h"
#include "platform/qt/Form.h"

class QCheckBox;
class QComboBox;

namespace turnpost {

class NameList;

/// The file picker. Leaves the chosen file, or that nothing was chosen, with the application.
class frmOpen final : public Form {
  public:
    frmOpen(QWidget* parent, Application& usedApplication);

    /// Every way of closing but Load is Cancel.
    void reject() override { butCancel_Click(); }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void showEvent(QShowEvent* event) override;

  private:
    void addControls();
    void fillDrives();
    void showFolder(std::optional<FolderList> folder);
    bool Dir1_KeyDown(int key);
    void Drive1_Change(int index);
    void Dir1_Change(int line);
    void File1_Click();
    void butLoad_Click();
    void butCancel_Click();

    Application& application;
    QComboBox* Drive1 = nullptr;
    NameList* Dir1 = nullptr;
    NameList* File1 = nullptr;
    QPushButton* butLoad = nullptr;
    QCheckBox* LoadDef = nullptr;
    std::vector<std::string> drives;
    FolderList shown;
};

} // namespace turnpost
