#include "automation/Host.h"

#include "automation/SampleGame.h"
#include "files/Files.h"
#include "storage/SettingsFile.h"
#include "text/Path.h"

#include <QAction>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QTest>

namespace turnpost::automation {

namespace {

QStringList partsOf(const QString& folder) {
    const std::filesystem::path path = pathParts(QDir::toNativeSeparators(folder).toStdString());
    QStringList parts;
    if (path.has_root_path()) {
        parts += QString::fromStdString(fromNativePath(path.root_path()));
    }
    for (const auto& part : path.relative_path()) {
        parts += QString::fromStdString(fromNativePath(part));
    }
    return parts;
}

} // namespace

Host::Host(const std::string& folder, const Application::MailSystemMaker& makeMail)
    : programFolder_(folder.empty() ? temporary_.path().toStdString() : folder),
      program_({programFolder_, programFolder_}, makeMail) {}

void Host::saveSettings(const std::string& smtpServer) const {
    Settings settings;
    settings.HostName = "Game Host";
    settings.HostEmail = "host@example.org";
    settings.SmtpServer = smtpServer;
    replaceFile(joinPath(programFolder_, "TURNPOST.INI"), printSettings(settings));
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
    const auto lineOf = [&picker](const char* list, const QString& name, int from) {
        auto* view = findControl<QListView>(picker, list);
        for (int row = from; row < view->model()->rowCount(); ++row) {
            const QModelIndex line = view->model()->index(row, 0);
            if (line.data().toString() == name) {
                view->scrollTo(line);
                return view->visualRect(line).center();
            }
        }
        throw std::runtime_error("no line " + name.toStdString());
    };
    QWidget* folders = findControl<QListView>(picker, "Dir1")->viewport();
    QWidget* files = findControl<QListView>(picker, "File1")->viewport();
    // From the root down; an empty folder has no parts.
    int depth = 0;
    for (const QString& name : partsOf(folder)) {
        const QPoint line = lineOf("Dir1", name, depth);
        QTest::mouseClick(folders, Qt::LeftButton, {}, line);
        QTest::mouseDClick(folders, Qt::LeftButton, {}, line);
        ++depth;
    }
    QTest::mouseClick(files, Qt::LeftButton, {}, lineOf("File1", file, 0));
}

void Host::expectPicker(const QString& file) {
    modals_.expect("frmOpen", [this, file](QWidget& form) {
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
    auto files = makeSampleGame(programFolder_, lengths);
    saveSettings(smtpServer);
    program_.startUp();
    findGame();
    for (const auto& [player, length] : lengths) {
        type(QString("PlayerEmail(%1)").arg(player - 1), QString("p%1@example.org").arg(player));
    }
    return files;
}

} // namespace turnpost::automation
