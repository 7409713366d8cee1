#include "dialogs/qt/frmOpen.h"

#include "dialogs/Volumes.h"
#include "dialogs/qt/NameList.h"
#include "text/Text.h"
#include "text/qt/QtText.h"
#include "widgets/Controls.h"
#include "widgets/Twips.h"

#include <QDir>
#include <QKeyEvent>
#include <QLabel>
#include <QStorageInfo>
#include <QStyle>
#include <algorithm>

namespace turnpost {

namespace {

std::vector<std::string> offeredDrives() {
#ifdef _WIN32
    std::vector<std::string> letters;
    for (const QFileInfo& drive : QDir::drives()) {
        letters.push_back(fromQt(QDir::toNativeSeparators(drive.absoluteFilePath())));
    }
    return letters;
#else
    std::vector<Volume> volumes;
    for (const QStorageInfo& volume : QStorageInfo::mountedVolumes()) {
        volumes.push_back({fromQt(volume.rootPath()), volume.device().toStdString(),
                           volume.fileSystemType().toStdString()});
    }
    return placesForPeople(volumes, qgetenv("HOME").toStdString(),
                           qgetenv("WINEPREFIX").toStdString());
#endif
}

QString shownName(const std::string& name) {
    return toQt(oneLine(name));
}

QString reasonOf(const std::optional<Refusal>& refusal) {
    return refusal ? toQt(refusal->words) : QString();
}

QIcon folderIcon(const QStyle& style, QStyle::StandardPixmap which) {
    QIcon icon = style.standardIcon(which);
    // With the tint of a selected icon, an open folder would look like a closed one.
    icon.addPixmap(icon.pixmap(16), QIcon::Selected);
    return icon;
}

bool isEnter(int key) {
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}

} // namespace

frmOpen::frmOpen(QWidget* parent, const FilePicker& request, const std::string& gamePath,
                 std::string programFolder, Answer answer)
    : Form(parent, "frmOpen", "Locate File", {7155, 4710}), pattern_(request.PickerPattern),
      program_(std::move(programFolder)), answer_(std::move(answer)) {
    addControls(request.PickerMessage);
    LoadDef->setVisible(offersDefaultGame(request));
    auto folder = listFolder(pickerStartFolder(gamePath, program_), pattern_);
    showFolder(folder ? folder : listNearestFolder(program_, pattern_));
    fillDrives();
    (shown_.files.empty() ? Dir1 : File1)->setFocus();
}

void frmOpen::addControls(const std::string& prompt) {
    addLabel("txtOpenMessage", toQt(prompt), twipsRect(240, 60, 5415, 315));
    Drive1 = new ElidingComboBox(client());
    Drive1->setObjectName("Drive1");
    Drive1->setAccessibleName("Drive");
    // Some screen readers speak the chosen text in place of the name.
    Drive1->setAccessibleDescription("Drive");
    Drive1->setGeometry(twipsRect(240, 420, 2775, 315));
    Dir1 = new NameList(client(), "Dir1", "Folder");
    Dir1->setGeometry(twipsRect(240, 900, 2775, 3690));
    File1 = new NameList(client(), "File1", "File");
    File1->setGeometry(twipsRect(3120, 420, 2535, 4185));
    File1->elideInTheMiddle();
    butLoad = addButton("butLoad", "Load", twipsRect(5880, 240, 1215, 495));
    QPushButton* butCancel = addButton("butCancel", "Cancel", twipsRect(5880, 840, 1215, 495));
    LoadDef = new CaptionCheckBox("Load as Default?", client());
    LoadDef->setObjectName("LoadDef");
    LoadDef->setGeometry(twipsRect(5940, 2340, 1035, 855));
    Dir1->installEventFilter(this);
    File1->installEventFilter(this);
    connect(Drive1, &QComboBox::activated, this, &frmOpen::Drive1_Change);
    connect(Dir1, &NameList::doubleClicked, this,
            [this](const QModelIndex& line) { Dir1_Change(line.row()); });
    connect(File1->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &frmOpen::File1_Click);
    connect(File1, &NameList::doubleClicked, this, &frmOpen::butLoad_Click);
    connect(butLoad, &QPushButton::clicked, this, &frmOpen::butLoad_Click);
    connect(butCancel, &QPushButton::clicked, this, &frmOpen::butCancel_Click);
}

void frmOpen::fillDrives() {
    drives_ = offeredDrives();
    for (const std::string& drive : drives_) {
        Drive1->addItem(shownName(drive));
    }
    const std::string own = volumeOf(program_, drives_);
    const auto place = std::find(drives_.begin(), drives_.end(), own);
    Drive1->setCurrentIndex(place == drives_.end() ? -1
                                                   : static_cast<int>(place - drives_.begin()));
}

void frmOpen::showFolder(std::optional<FolderList> folder) {
    shown_ = std::move(folder).value_or(FolderList());
    const QIcon open = folderIcon(*style(), QStyle::SP_DirOpenIcon);
    const QIcon closed = folderIcon(*style(), QStyle::SP_DirClosedIcon);
    std::vector<NameList::Line> lines;
    for (size_t i = 0; i < shown_.lines.size(); ++i) {
        const bool isCurrent = i == shown_.current;
        lines.push_back({shownName(shown_.lines[i].name), isCurrent ? open : closed,
                         static_cast<int>(std::min(i, shown_.current + 1)),
                         isCurrent ? "open folder" : QString(),
                         reasonOf(shown_.lines[i].unusable)});
    }
    Dir1->setLines(std::move(lines));
    if (!shown_.lines.empty()) {
        Dir1->selectLine(shown_.current);
    }
    std::vector<NameList::Line> files;
    for (const FileLine& file : shown_.files) {
        files.push_back({shownName(file.name), {}, 0, {}, reasonOf(file.unusable)});
    }
    File1->setLines(std::move(files));
    File1_Click();
}

void frmOpen::showEvent(QShowEvent* event) {
    Form::showEvent(event);
    if (!shown_.lines.empty()) {
        // Only now does the list have its final height.
        Dir1->selectLine(shown_.current);
    }
}

bool frmOpen::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        const auto* press = static_cast<QKeyEvent*>(event);
        if (watched == Dir1 && Dir1_KeyDown(press->key())) {
            return true;
        }
        if (watched == File1 && isEnter(press->key())) {
            if (!press->isAutoRepeat()) {
                butLoad_Click();
            }
            return true;
        }
    }
    return Form::eventFilter(watched, event);
}

bool frmOpen::Dir1_KeyDown(int key) {
    const int line = Dir1->selectedLine();
    const bool down = isEnter(key) || key == Qt::Key_Right;
    const bool up = key == Qt::Key_Left || key == Qt::Key_Backspace;
    if (line >= 0 && down) {
        Dir1_Change(line);
    } else if (line >= 0 && up) {
        // The first lines lead from the root to the current folder; all others are inside it.
        Dir1_Change(std::max(0, std::min(line - 1, static_cast<int>(shown_.current))));
    }
    return down || up;
}

void frmOpen::Drive1_Change(int index) {
    showFolder(listFolder(drives_.at(static_cast<size_t>(index)), pattern_));
}

void frmOpen::Dir1_Change(int line) {
    showFolder(listNearestFolder(shown_.lines.at(static_cast<size_t>(line)).path, pattern_));
}

void frmOpen::File1_Click() {
    butLoad->setEnabled(File1->selectedLine() >= 0);
}

void frmOpen::butLoad_Click() {
    const int file = File1->selectedLine();
    if (file < 0) {
        return;
    }
    answer_.picked(shown_.folder(), shown_.files.at(static_cast<size_t>(file)).name,
                   LoadDef->isChecked());
    accept();
}

void frmOpen::butCancel_Click() {
    answer_.cancelled();
    QDialog::reject();
}

} // namespace turnpost
