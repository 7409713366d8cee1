#pragma once

#include "storage/Settings.h"
#include "widgets/Form.h"

#include <functional>

namespace turnpost {

/// The stored games dialog: puts the current game into a slot, or empties one. Only OK stores
/// anything.
class frmStore final : public Form {
  public:
    using Slots = std::array<StoredGame, 4>;
    using Store = std::function<void(const Slots&)>;

    /// `gameToStore` is what "Store" puts into a slot.
    frmStore(QWidget* parent, const Slots& storedGames, StoredGame gameToStore, Store store);

  private:
    void addRow(size_t row);
    void showSlot(size_t row, const StoredGame& slot);
    void mnuOK_Click();

    StoredGame current_;
    Store store_;
    Slots games_;
    std::array<QLineEdit*, 4> txtStoreName{};
    std::array<QLineEdit*, 4> txtStoreFile{};
};

} // namespace turnpost
