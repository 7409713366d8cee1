#include "dialogs/qt/frmAtch.h"

#include "text/qt/QtText.h"
#include "widgets/Twips.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>

namespace turnpost {

frmAtch::frmAtch(QWidget* parent, const AttachmentChoices& choices, PickFile pickFile, Store store)
    : Form(parent, "frmAtch", "Attachments", {5400, 3105}), pickFile_(std::move(pickFile)),
      store_(std::move(store)) {
    chkXY = addCheckBox("chkXY", "Send XY File?", twipsRect(120, 120, 2415, 495));
    chkMx = addCheckBox("chkMx", "Send M Files?", twipsRect(2520, 120, 2535, 495));
    chkXY->setChecked(choices.SendXYFile == 1);
    chkMx->setChecked(choices.SendMFiles == 1);
    for (size_t k = 0; k < txtFile.size(); ++k) {
        addRow(k);
        showFile(k, choices.ExtraAttachments[k]);
    }
    QPushButton* butOK = addButton("butOK", "OK", twipsRect(1680, 2520, 1695, 495));
    connect(butOK, &QPushButton::clicked, this, &frmAtch::butOK_Click);
}

QCheckBox* frmAtch::addCheckBox(const char* name, const QString& caption, const QRect& place) {
    auto* box = new QCheckBox(caption, client());
    box->setObjectName(name);
    box->setGeometry(place);
    return box;
}

void frmAtch::addRow(size_t k) {
    const int top = 960 + 480 * static_cast<int>(k);
    const auto nameOf = [k](const char* control) { return QString("%1(%2)").arg(control).arg(k); };
    txtFile[k] = addTextBox(nameOf("txtFile"), twipsRect(120, top, 2895, 375),
                            QString("Extra file %1").arg(k + 1));
    QPushButton* add = addButton(nameOf("butAddAtch"), "Add...", twipsRect(3120, top, 975, 375));
    QPushButton* remove = addButton(nameOf("butRemove"), "Remove", twipsRect(4200, top, 975, 375));
    connect(add, &QPushButton::clicked, this, [this, k] { butAddAtch_Click(k); });
    connect(remove, &QPushButton::clicked, this, [this, k] { showFile(k, {}); });
}

void frmAtch::butAddAtch_Click(size_t k) {
    const std::string path = pickFile_();
    if (!path.empty()) {
        showFile(k, path);
    }
}

void frmAtch::showFile(size_t k, const std::string& path) {
    // Setting the same text again would lose the cursor position and the undo history.
    if (fromQt(txtFile[k]->text()) != path) {
        txtFile[k]->setText(toQt(path));
    }
}

void frmAtch::butOK_Click() {
    AttachmentChoices choices;
    choices.SendXYFile = chkXY->isChecked() ? 1 : 0;
    choices.SendMFiles = chkMx->isChecked() ? 1 : 0;
    for (size_t k = 0; k < txtFile.size(); ++k) {
        choices.ExtraAttachments[k] = fromQt(txtFile[k]->text());
    }
    store_(choices);
    accept();
}

} // namespace turnpost
