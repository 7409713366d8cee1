#include "dialogs/qt/frmOpen.h"

#include "dialogs/Volumes.h"
#include "platform/qt/Controls.h"
#include "platform/qt/QtText.h"
#include "platform/qt/Twips.h"

#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QListView>
#include <QStorageInfo>
#include <QTreeView>

namespace turnpost {

namespace {

std::vector<std::string> mountPoints() {
#ifdef _WIN32
    std::vector<std::string> drives;
    for (const QFileInfo& drive : QDir::drives()) {
        drives.push_back(fromQt(drive.absoluteFilePath()));
    }
    return drives;
#else
    std::vector<Volume> volumes;
    for (const QStorageInfo& volume : QStorageInfo::mountedVolumes()) {
        volumes.push_back({fromQt(volume.rootPath()), volume.device().toStdString(),
                           volume.fileSystemType().toStdString()});
    }
    return volumesForPeople(volumes);
#endif
}

} // namespace

frmOpen::frmOpen(QWidget* parent, Application& usedApplication)
    : Form(parent, "frmOpen", "Locate File", {7155, 4710}), application(usedApplication) {
    const SharedValues& values = application.values();
    addControls();
    LoadDef->setVisible(offersDefaultGame(values.picker));
    folders.setFilter(QDir::Dirs | QDir::NoDotAndDotDot | QDir::Drives);
    folders.setRootPath(QDir::rootPath());
    Dir1->setModel(&folders);
    for (int column = 1; column < folders.columnCount(); ++column) {
        Dir1->hideColumn(column);
    }
    File1->setModel(&files);
    connect(Dir1->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &frmOpen::Dir1_Change);
    connect(File1->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &frmOpen::File1_Click);
    // The tree fills later and would move the folder out of sight as it does.
    connect(&folders, &QFileSystemModel::directoryLoaded, this, [this](const QString& loaded) {
        if (QDir::fromNativeSeparators(folder).startsWith(loaded)) {
            showFolderInTree();
        }
    });
    fillDrives();
    openFolder(toQt(pickerStartFolder(values.game.GamePath, application.folders().program)));
}

void frmOpen::addControls() {
    addLabel("txtOpenMessage", toQt(application.values().picker.PickerMessage),
             twipsRect(240, 60, 5415, 315));
    Drive1 = new QComboBox(client());
    Drive1->setObjectName("Drive1");
    Drive1->setAccessibleName("Drive");
    Drive1->setGeometry(twipsRect(240, 420, 2775, 315));
    Dir1 = new QTreeView(client());
    Dir1->setObjectName("Dir1");
    Dir1->setAccessibleName("Folder");
    Dir1->setGeometry(twipsRect(240, 900, 2775, 3690));
    Dir1->setHeaderHidden(true);
    Dir1->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    Dir1->header()->setStretchLastSection(false);
    Dir1->setIndentation(toPixels(180));
    File1 = new QListView(client());
    File1->setObjectName("File1");
    File1->setAccessibleName("File");
    File1->setGeometry(twipsRect(3120, 420, 2535, 4185));
    File1->setEditTriggers(QAbstractItemView::NoEditTriggers);
    butLoad = addButton("butLoad", "Load", twipsRect(5880, 240, 1215, 495));
    butLoad->setEnabled(false);
    QPushButton* butCancel = addButton("butCancel", "Cancel", twipsRect(5880, 840, 1215, 495));
    LoadDef = new CaptionCheckBox("Load as Default?", client());
    LoadDef->setObjectName("LoadDef");
    LoadDef->setGeometry(twipsRect(5940, 2340, 1035, 855));
    connect(Drive1, &QComboBox::activated, this, &frmOpen::Drive1_Change);
    connect(File1, &QListView::doubleClicked, this, &frmOpen::butLoad_Click);
    connect(butLoad, &QPushButton::clicked, this, &frmOpen::butLoad_Click);
    connect(butCancel, &QPushButton::clicked, this, &frmOpen::butCancel_Click);
}

void frmOpen::fillDrives() {
    const auto drives = mountPoints();
    for (const std::string& drive : drives) {
        Drive1->addItem(QDir::toNativeSeparators(toQt(drive)), toQt(drive));
    }
    const std::string own = fromQt(QDir::fromNativeSeparators(toQt(application.folders().program)));
    Drive1->setCurrentIndex(Drive1->findData(toQt(volumeOf(own, drives))));
}

void frmOpen::openFolder(const QString& path) {
    // The tree has an index even for a folder that does not exist.
    if (!QDir(path).exists()) {
        return;
    }
    const QModelIndex index = folders.index(path);
    if (index == Dir1->currentIndex()) {
        Dir1_Change(index);
    }
    Dir1->setCurrentIndex(index);
    showFolderInTree();
}

void frmOpen::showFolderInTree() {
    const QModelIndex current = Dir1->currentIndex();
    Dir1->expand(current);
    Dir1->scrollTo(current, QAbstractItemView::PositionAtCenter);
}

void frmOpen::Drive1_Change(int index) {
    openFolder(Drive1->itemData(index).toString());
}

void frmOpen::Dir1_Change(const QModelIndex& chosen) {
    folder = QDir::toNativeSeparators(folders.filePath(chosen));
    const QString pattern = toQt(application.values().picker.PickerPattern);
    files.setStringList(QDir(folder).entryList({pattern == anyFilePattern ? QString("*") : pattern},
                                               QDir::Files, QDir::Name | QDir::IgnoreCase));
    File1->clearSelection();
    File1_Click();
}

void frmOpen::File1_Click() {
    butLoad->setEnabled(File1->selectionModel()->hasSelection());
}

void frmOpen::butLoad_Click() {
    const QModelIndexList selected = File1->selectionModel()->selectedIndexes();
    if (selected.isEmpty()) {
        return;
    }
    application.pickFile(fromQt(folder), fromQt(selected.first().data().toString()),
                         LoadDef->isChecked());
    accept();
}

void frmOpen::butCancel_Click() {
    application.cancelPicker();
    QDialog::reject();
}

} // namespace turnpost
