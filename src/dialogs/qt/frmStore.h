#pragma once

#include "app/Application.h"
#include "platform/qt/Form.h"

namespace turnpost {

/// The stored games dialog: puts the current game into a slot, or empties one. Only OK stores
/// anything.
class frmStore final : public Form {
  public:
    frmStore(QWidget* parent, Application& usedApplication);

  private:
    void addRow(size_t row);
    void showSlot(size_t row, const StoredGame& slot);
    void mnuOK_Click();

    Application& application;
    std::array<StoredGame, 4> games;
    std::array<QLineEdit*, 4> txtStoreName{};
    std::array<QLineEdit*, 4> txtStoreFile{};
};

} // namespace turnpost
