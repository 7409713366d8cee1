#include "roster/qt/frmMain.h"

#include "text/Text.h"
#include "text/qt/QtText.h"
#include "widgets/Controls.h"
#include "widgets/FilledBar.h"
#include "widgets/OneLineBox.h"

#include <QAction>
#include <QCloseEvent>
#include <QCoreApplication>
#include <QFontMetrics>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <utility>

namespace turnpost {

namespace {

constexpr int maxNameWidth = 320; // pixels, half of the window

// A menu shows the text after a tab in its column of shortcuts, so tabs become blanks.
void showStoredGame(QAction* item, const std::string& name) {
    const QString line = toQt(oneLine(name)).replace('\t', ' ');
    const QFontMetrics metrics(item->font());
    item->setText(escapeMnemonics(metrics.elidedText(line, Qt::ElideMiddle, maxNameWidth)));
    item->setToolTip(plainTip(toQt(name)));
}

} // namespace

void frmMain::showValues(const std::array<std::string, 4>& storedGames) {
    const GameDetails& game = commands_.game();
    showLine(GameName, game.GameName);
    showLine(txtGamePath, game.GamePath);
    txtYear->setText(QString::number(game.GameYear));
    rows_->showGame();
    for (size_t slot = 0; slot < mnuStoredG.size(); ++slot) {
        showStoredGame(mnuStoredG[slot], storedGames[slot]);
    }
}

void frmMain::setProgress(double fraction) {
    Shape1->setFraction(fraction);
}

bool frmMain::eventFilter(QObject* watched, QEvent* event) {
    // Every mouse press counts, also on the selected option and the second press of a double-click.
    // Selecting by the keyboard does nothing.
    const bool press =
        event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick;
    for (size_t index = 0; press && index < PlaySel.size(); ++index) {
        if (watched == PlaySel[index]) {
            PlaySel_MouseDown(static_cast<int>(index));
        }
    }
    // The second press of a double-click would restart the send and mail again the players already
    // reached.
    if (event->type() == QEvent::MouseButtonDblClick &&
        (watched == butSend || watched == Command1)) {
        return true;
    }
    return Form::eventFilter(watched, event);
}

void frmMain::closeEvent(QCloseEvent* event) {
    event->accept();
    // The animation handles pending events; one of them may be a second close.
    if (!std::exchange(closing_, true)) {
        commands_.shutDown();
        playClosing_(this);
        QCoreApplication::quit();
    }
}

void frmMain::PlaySel_MouseDown(int index) {
    commands_.selectPlayers(static_cast<PlayerSelection>(index));
}

} // namespace turnpost
