#pragma once

#include "app/Application.h"
#include "platform/qt/Form.h"

#include <QFileSystemModel>
#include <QStringListModel>

class QCheckBox;
class QComboBox;
class QListView;
class QTreeView;

namespace turnpost {

/// The file picker. Leaves the chosen file, or that nothing was chosen, with the application.
class frmOpen final : public Form {
  public:
    frmOpen(QWidget* parent, Application& usedApplication);

    /// Every way of closing but Load is Cancel.
    void reject() override { butCancel_Click(); }

  private:
    void addControls();
    void fillDrives();
    void openFolder(const QString& folder);
    void showFolderInTree();
    void Drive1_Change(int index);
    void Dir1_Change(const QModelIndex& folder);
    void File1_Click();
    void butLoad_Click();
    void butCancel_Click();

    Application& application;
    QComboBox* Drive1 = nullptr;
    QTreeView* Dir1 = nullptr;
    QListView* File1 = nullptr;
    QPushButton* butLoad = nullptr;
    QCheckBox* LoadDef = nullptr;
    QFileSystemModel folders;
    QStringListModel files;
    QString folder;
};

} // namespace turnpost
