#include "dialogs/qt/frmStore.h"

#include "text/qt/QtText.h"
#include "widgets/Twips.h"

#include <QLineEdit>
#include <QPushButton>

namespace turnpost {

frmStore::frmStore(QWidget* parent, const Slots& storedGames, StoredGame gameToStore, Store store)
    : Form(parent, "frmStore", "Where to store current game details?", {8115, 2760}),
      current_(std::move(gameToStore)), store_(std::move(store)) {
    for (size_t row = 0; row < games_.size(); ++row) {
        addRow(row);
        showSlot(row, storedGames[row]);
    }
    QPushButton* mnuOK = addButton("mnuOK", "OK", twipsRect(6240, 2160, 1575, 495));
    connect(mnuOK, &QPushButton::clicked, this, &frmStore::mnuOK_Click);
}

void frmStore::addRow(size_t row) {
    const int top = 300 + 480 * static_cast<int>(row);
    const auto nameOf = [row](const char* control) {
        return QString("%1(%2)").arg(control).arg(row);
    };
    const QString slot = QString("Slot %1 ").arg(row + 1);
    txtStoreName[row] =
        addTextBox(nameOf("txtStoreName"), twipsRect(240, top, 1815, 285), slot + "game name");
    txtStoreFile[row] =
        addTextBox(nameOf("txtStoreFile"), twipsRect(2160, top, 3735, 285), slot + "file");
    makeReadOnly(txtStoreName[row]);
    makeReadOnly(txtStoreFile[row]);
    QPushButton* put = addButton(nameOf("butStore"), "Store", twipsRect(6000, top - 60, 975, 375));
    QPushButton* clear =
        addButton(nameOf("butClear"), "Clear", twipsRect(7080, top - 60, 855, 375));
    connect(put, &QPushButton::clicked, this, [this, row] { showSlot(row, current_); });
    connect(clear, &QPushButton::clicked, this, [this, row] { showSlot(row, StoredGame()); });
}

void frmStore::showSlot(size_t row, const StoredGame& slot) {
    games_[row] = slot;
    txtStoreName[row]->setText(toQt(slot.StoredGameName));
    txtStoreFile[row]->setText(toQt(slot.StoredGameFile));
    txtStoreFile[row]->setCursorPosition(0);
}

void frmStore::mnuOK_Click() {
    store_(games_);
    accept();
}

} // namespace turnpost
