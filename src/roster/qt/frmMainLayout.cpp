#include "roster/qt/frmMain.h"

#include "text/qt/QtText.h"
#include "widgets/FilledBar.h"
#include "widgets/Twips.h"

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>

namespace turnpost {

frmMain::frmMain(MainCommands& commands, std::function<void(QWidget*)> playClosing)
    : Form(nullptr, "frmMain", {}, {9600, 7200}, Frame::MainWindow), commands_(commands),
      playClosing_(std::move(playClosing)) {
    addMenus();
    addNameLine();
    addPathLine();
    addProgress();
    addSelection();
    addHeadings();
    rows_ = new RosterRows(client(), commands_.game());
}

void frmMain::addNameLine() {
    addLabel("Label4", "Game Name:", twipsRect(60, 120, 1575, 255));
    GameName = addTextBox("GameName", twipsRect(1440, 120, 2955, 345), "Game name");
    connect(GameName, &QLineEdit::textChanged, this,
            [this](const QString& text) { commands_.game().GameName = fromQt(text); });
    addLabel("Label10", "Year:", twipsRect(4440, 120, 615, 315));
    txtYear = addLabel("txtYear", {}, twipsRect(5040, 120, 615, 315));
    txtYear->setContentsMargins({});
    txtYear->setFrameStyle(QFrame::Box | QFrame::Plain);
    txtYear->setAlignment(Qt::AlignCenter);
    txtYear->setBackgroundRole(QPalette::Base);
    txtYear->setAutoFillBackground(true);
    Command1 = addButton("Command1", "Send via MAPI", twipsRect(5760, 60, 975, 495));
    butSend = addButton("butSend", "Send via SMTP", twipsRect(6780, 60, 915, 495));
    QPushButton* butAtch = addButton("butAtch", "Attachments", twipsRect(8280, 60, 1095, 495));
    QPushButton* butSend2 = addButton("butSend2", "Command2", twipsRect(1080, 120, 1575, 195));
    butSend2->hide();
    Command1->installEventFilter(this);
    butSend->installEventFilter(this);
    connect(Command1, &QPushButton::clicked, this, &frmMain::Command1_Click);
    connect(butSend, &QPushButton::clicked, this, &frmMain::butSend_Click);
    connect(butAtch, &QPushButton::clicked, this, &frmMain::butAtch_Click);
    connect(butSend2, &QPushButton::clicked, this, &frmMain::butSend2_Click);
}

void frmMain::addPathLine() {
    addLabel("Label5", "Game Path:", twipsRect(60, 480, 1575, 255));
    txtGamePath = addTextBox("txtGamePath", twipsRect(1440, 480, 3195, 345), "Game path");
    makeReadOnly(txtGamePath);
    QPushButton* GameChoose = addButton("GameChoose", "Find Game", twipsRect(4680, 480, 975, 315));
    connect(GameChoose, &QPushButton::clicked, this, &frmMain::GameChoose_Click);
}

void frmMain::addProgress() {
    QLabel* Label8 = addLabel("Label8", "Sending Progress", twipsRect(5760, 540, 3615, 615));
    Label8->setContentsMargins({});
    Label8->setFrameStyle(QFrame::Box | QFrame::Plain);
    // The indent would also move the text down, and the bar would cover its descenders.
    Label8->setIndent(0);
    addLabel("Label6", "0%", twipsRect(5880, 780, 255, 255));
    Shape1 = new FilledBar(client(), toPixels(2640));
    Shape1->setObjectName("Shape1");
    Shape1->setAccessibleName("Sending progress");
    Shape1->setGeometry(twipsRect(6240, 780, 2640, 255));
    addLabel("Label7", "100%", twipsRect(8880, 780, 495, 255));
}

void frmMain::addSelection() {
    const char* const captions[] = {"All", "None", "Invert"};
    const QRect places[] = {twipsRect(180, 900, 795, 315), twipsRect(1020, 900, 855, 315),
                            twipsRect(1920, 900, 855, 315)};
    for (size_t i = 0; i < PlaySel.size(); ++i) {
        PlaySel[i] = new QRadioButton(captions[i], client());
        PlaySel[i]->setObjectName(QString("PlaySel(%1)").arg(i));
        PlaySel[i]->setGeometry(places[i]);
        PlaySel[i]->installEventFilter(this);
    }
}

void frmMain::addHeadings() {
    addLabel("Label1", "Player Name ", twipsRect(840, 1200, 2775, 255));
    addLabel("Label2", "Player Email Address", twipsRect(3060, 1200, 2415, 255));
    addLabel("Label9", "Alternate Email", twipsRect(5580, 1200, 2415, 315));
    addLabel("Label3", "Turn File", twipsRect(8100, 1200, 1095, 255));
}

QAction* frmMain::addItem(QMenu* menu, const char* name, const QString& caption,
                          void (frmMain::*handler)()) {
    QAction* item = menu->addAction(caption);
    item->setObjectName(name);
    connect(item, &QAction::triggered, this, handler);
    return item;
}

void frmMain::addMenus() {
    menuBar_ = new QMenuBar(this);
    menuBar_->lower();
    const auto addMenu = [this](const char* name, const QString& caption) {
        QMenu* menu = menuBar_->addMenu(caption);
        menu->setObjectName(name);
        return menu;
    };
    QMenu* mnuFile = addMenu("mnuFile", "&File");
    addItem(mnuFile, "mnuNew", "&New", &frmMain::mnuNew_Click);
    addItem(mnuFile, "mnuOpen", "&Open", &frmMain::mnuOpen_Click);
    addItem(mnuFile, "mnuSave", "&Save", &frmMain::mnuSave_Click);
    mnuFile->addSeparator()->setObjectName("mnuSpace1");
    addItem(mnuFile, "mnuExit", "E&xit", &frmMain::mnuExit_Click);
    QMenu* mnuSettings = addMenu("mnuSettings", "&Settings");
    addItem(mnuSettings, "mnuEmailSets", "&Email", &frmMain::mnuEmailSets_Click);
    addItem(mnuSettings, "mnuMsg", "&Message", &frmMain::mnuMsg_Click);
    QMenu* mnuStored = addMenu("mnuStored", "&Stored Games");
    mnuStored->setToolTipsVisible(true);
    for (size_t slot = 0; slot < mnuStoredG.size(); ++slot) {
        const int number = static_cast<int>(slot) + 1;
        mnuStoredG[slot] = mnuStored->addAction(QString());
        mnuStoredG[slot]->setObjectName(QString("mnuStoredG(%1)").arg(number));
        connect(mnuStoredG[slot], &QAction::triggered, this,
                [this, number] { mnuStoredG_Click(number); });
    }
    mnuStored->addSeparator()->setObjectName("mnuSpace2");
    addItem(mnuStored, "mnuStoredCon", "Configure", &frmMain::mnuStoredCon_Click);
    QMenu* mnuHelp = addMenu("mnuHelp", "&Help");
    addItem(mnuHelp, "mnuAbout", "&About", &frmMain::mnuAbout_Click);
    const int height = menuBar_->sizeHint().height();
    menuBar_->setGeometry(0, 0, toPixels(9600), height);
    setMenuHeight(height);
}

} // namespace turnpost
