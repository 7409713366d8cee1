#pragma once

#include "dialogs/FilePicker.h"
#include "dialogs/FolderList.h"
#include "widgets/Form.h"

#include <functional>

class QCheckBox;
class QComboBox;

namespace turnpost {

class NameList;

/// The file picker. Reports the chosen file, or a cancel.
class frmOpen final : public Form {
  public:
    /// Exactly one of the two is called, before the dialog closes.
    struct Answer {
        std::function<void(const std::string& folder, const std::string& file, bool asDefaultGame)>
            picked;
        std::function<void()> cancelled;
    };

    /// Opens in the game's folder or in the program's (see pickerStartFolder). The drive list shows
    /// the drive of the program's folder.
    frmOpen(QWidget* parent, const FilePicker& request, const std::string& gamePath,
            std::string programFolder, Answer answer);

    /// Every way to close the dialog except Load is a cancel.
    void reject() override { butCancel_Click(); }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void showEvent(QShowEvent* event) override;

  private:
    void addControls(const std::string& prompt);
    void fillDrives();
    void showFolder(std::optional<FolderList> folder);
    bool Dir1_KeyDown(int key);
    void Drive1_Change(int index);
    void Dir1_Change(int line);
    void File1_Click();
    void butLoad_Click();
    void butCancel_Click();

    const std::string pattern_;
    const std::string program_;
    Answer answer_;
    QComboBox* Drive1 = nullptr;
    NameList* Dir1 = nullptr;
    NameList* File1 = nullptr;
    QPushButton* butLoad = nullptr;
    QCheckBox* LoadDef = nullptr;
    std::vector<std::string> drives_;
    FolderList shown_;
};

} // namespace turnpost
