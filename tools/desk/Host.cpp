#include "desk/Host.h"

#include "desk/SampleGame.h"
#include "desk/Waiting.h"
#include "platform/Files.h"
#include "platform/Path.h"
#include "storage/SettingsFile.h"

#include <QAction>
#include <QFileSystemModel>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QTest>
#include <QTreeView>

namespace turnpost::desk {

Host::Host(const std::string& folder, const Application::MailSystemMaker& makeMail)
    : programFolder(folder.empty() ? temporary.path().toStdString() : folder),
      program({programFolder, programFolder}, makeMail) {}

void Host::saveSettings(const std::string& smtpServer) const {
    Settings settings;
    settings.HostName = "Game Host";
    settings.HostEmail = "host@example.org";
    settings.SmtpServer = smtpServer;
    replaceFile(joinPath(programFolder, "TURNPOST.INI"), printSettings(settings));
}

void Host::click(const QString& button, QWidget* form) {
    auto* control = findControl<QAbstractButton>(*formOr(form), button);
    QTest::mouseClick(control, Qt::LeftButton);
}

void Host::type(const QString& box, const QString& text, QWidget* form) {
    auto* control = findControl<QWidget>(*formOr(form), box);
    QTest::mouseClick(control, Qt::LeftButton);
    QTest::keySequence(control, QKeySequence::SelectAll);
    QTest::keyClick(control, Qt::Key_Delete);
    const QStringList lines = text.split('\n');
    QTest::keyClicks(control, lines.first());
    for (const QString& line : lines.mid(1)) {
        QTest::keyClick(control, Qt::Key_Return);
        QTest::keyClicks(control, line);
    }
}

void Host::chooseMenu(const QString& item) {
    auto* action = window().findChild<QAction*>(item);
    if (action == nullptr || !action->isEnabled()) {
        throw std::runtime_error("no menu item " + item.toStdString());
    }
    action->trigger();
}

QString Host::textOf(const QString& box) {
    return findControl<QLineEdit>(window(), box)->text();
}

void Host::selectFile(QWidget& picker, const QString& folder, const QString& file) {
    auto* tree = findControl<QTreeView>(picker, "Dir1");
    auto* list = findControl<QListView>(picker, "File1");
    const auto clickOn = [](QAbstractItemView* view, const QModelIndex& item) {
        view->scrollTo(item);
        const QRect visible = view->visualRect(item).intersected(view->viewport()->rect());
        QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, visible.center());
    };
    if (!folder.isEmpty()) {
        auto* folders = dynamic_cast<QFileSystemModel*>(tree->model());
        // The tree fills in its own time, and its rows move under the mouse while it does.
        const bool chosen = waitUntil([&] {
            const QModelIndex item = folders->index(folder);
            if (tree->visualRect(item).isValid()) {
                clickOn(tree, item);
            }
            return folders->filePath(tree->currentIndex()) == folder;
        });
        if (!chosen) {
            throw std::runtime_error("no folder " + folder.toStdString());
        }
    }
    const QAbstractItemModel* model = list->model();
    const QModelIndexList found =
        model->match(model->index(0, 0), Qt::DisplayRole, file, 1, Qt::MatchExactly);
    if (found.isEmpty()) {
        throw std::runtime_error("no file " + file.toStdString());
    }
    clickOn(list, found.first());
}

void Host::expectPicker(const QString& file) {
    modals.expect("frmOpen", [this, file](QWidget& form) {
        selectFile(form, {}, file);
        click("butLoad", &form);
    });
}

void Host::findGame() {
    expectPicker("GAME.HST");
    click("GameChoose");
}

std::map<int, std::string> Host::startGame(const std::string& smtpServer,
                                           const std::map<int, size_t>& lengths) {
    auto files = makeSampleGame(programFolder, lengths);
    saveSettings(smtpServer);
    program.startUp();
    findGame();
    for (const auto& [player, length] : lengths) {
        type(QString("PlayerEmail(%1)").arg(player - 1), QString("p%1@example.org").arg(player));
    }
    return files;
}

} // namespace turnpost::desk
