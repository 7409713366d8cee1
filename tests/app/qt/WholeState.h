#pragma once

#include "automation/Host.h"
#include "files/Files.h"
#include "text/qt/QtText.h"

#include <QAction>
#include <QMap>
#include <QRegularExpression>
#include <functional>

namespace turnpost::automation {

/// Everything that a command could change, as flat lines: name and value.
using State = QMap<QString, QString>;

/// On one line, and the same wherever the folder lies and whichever separator the system has.
inline QString flat(QString text, const std::string& folder) {
    text.replace(toQt(folder), "~").replace('\\', '/').replace("\r\n", "|");
    return text.replace('\n', '|');
}

/// Whether the text is the pattern, in which * and [a-b] stand for any text and a character.
inline bool matches(const QString& pattern, const QString& text) {
    const QString expression = QRegularExpression::wildcardToRegularExpression(pattern);
    return QRegularExpression(expression).match(text).hasMatch();
}

/// Takes the state of the program at this desk; every file in its folder belongs to it.
struct StateTaker {
    Host& host;
    State state = {};

    State take() {
        addValues(host.desktop().app().values());
        addObject("window.frmMain", host.window());
        for (const QWidget* control : host.window().findChildren<QWidget*>()) {
            const QString name = control->objectName();
            if (!name.isEmpty() && !name.startsWith("qt_")) { // Else it is the toolkit's own.
                const bool inRow = name.contains('(') && !name.startsWith("PlaySel");
                addObject((inRow ? "row." : "window.") + name, *control);
            }
        }
        for (const QAction* item : host.window().findChildren<QAction*>()) {
            addObject("menu." + item->objectName(), *item);
        }
        for (const auto& entry :
             std::filesystem::recursive_directory_iterator(toNativePath(host.folder()))) {
            const std::string path = fromNativePath(entry.path());
            add("file." + flat(toQt(path), host.folder()).mid(2),
                entry.is_regular_file() ? readFile(path) : "folder");
        }
        return std::move(state);
    }

    void add(const QString& name, const QString& value) {
        state[name] += flat(value, host.folder());
    }
    void add(const QString& name, const std::string& value) { add(name, toQt(value)); }
    void add(const QString& name, int value) { add(name, QString::number(value)); }

    template <typename List, typename Field>
    void addEach(const QString& name, const List& list, Field field) {
        for (size_t i = 0; i < list.size(); ++i) {
            add(QString("%1(%2)").arg(name).arg(i), std::invoke(field, list[i]));
        }
    }

    void addValues(const SharedValues& values) {
        const Settings& settings = values.settings;
        add("settings.HostName", settings.HostName);
        add("settings.HostEmail", settings.HostEmail);
        add("settings.SmtpServer", settings.SmtpServer);
        add("settings.DefaultGameFile", settings.DefaultGameFile);
        addEach("settings.StoredGameName", settings.StoredGames, &StoredGame::StoredGameName);
        addEach("settings.StoredGameFile", settings.StoredGames, &StoredGame::StoredGameFile);
        add("message.MessageSubject", values.message.MessageSubject);
        add("message.MessageBody", values.message.MessageBody);
        add("attachments.SendMFiles", values.attachments.SendMFiles);
        add("attachments.SendXYFile", values.attachments.SendXYFile);
        addEach("attachments.Extra", values.attachments.ExtraAttachments, std::identity());
        addEach("report", values.report, std::identity());
        add("LoadDefaultPending", values.LoadDefaultPending);
        add("GameNameToStore", values.GameNameToStore);
        add("game.GameName", values.game.GameName);
        add("game.GamePath", values.game.GamePath);
        add("game.HostFileName", values.game.HostFileName);
        add("game.GameYear", values.game.GameYear);
        addEach("game.IncludePlayer", values.game.rows, &PlayerSlot::IncludePlayer);
        addEach("game.PlayerName", values.game.rows, &PlayerSlot::PlayerName);
        addEach("game.PlayerEmail", values.game.rows, &PlayerSlot::PlayerEmail);
        addEach("game.AltEmail", values.game.rows, &PlayerSlot::AltEmail);
        addEach("game.GameFile", values.game.rows, &PlayerSlot::GameFile);
        addEach("game.Shown", values.game.rows, &PlayerSlot::Shown);
    }

    // A window, control or menu item. The line of its name is its tick or text.
    void addObject(const QString& name, const QObject& object) {
        const bool ticks = object.property("checkable").toBool();
        add(name, ticks ? QString::number(object.property("checked").toInt())
                        : object.property("text").toString());
        for (const char* property : {"visible", "enabled", "readOnly", "width", "windowTitle"}) {
            add(name + "." + property, object.property(property).toString());
        }
        for (const char* property : {"toolTip", "accessibleDescription"}) {
            add(name + ".note", object.property(property).toString());
        }
    }
};

/// What of the two states is not as the changes say. A change is name=value, or a name alone if the
/// value is only another one than before; "; " ends it. The name may be a pattern: then every line
/// that matches gets the value, of at least one line another one than before. A # in the value is
/// the number of the line's player. Nothing else may change.
inline QString faults(const State& before, const State& after, const QString& changes) {
    State expected = before;
    for (const QString& name : after.keys()) {
        expected.insert(name, before.value(name, "(none)"));
    }
    QString found;
    for (const QString& change : changes.split("; ", Qt::SkipEmptyParts)) {
        const QString pattern = change.section('=', 0, 0);
        bool differs = false;
        for (auto line = expected.begin(); line != expected.end(); ++line) {
            if (matches(pattern, line.key())) {
                const QString now = after.value(line.key(), "(none)");
                const int index = line.key().section('(', 1).section(')', 0, 0).toInt();
                differs = differs || now != before.value(line.key(), "(none)");
                *line = change == pattern
                            ? now
                            : change.section('=', 1).replace('#', QString::number(index + 1));
            }
        }
        found += differs ? "" : change + ": did not change\n";
    }
    for (const QString& name : expected.keys()) {
        const QString now = after.value(name, "(none)");
        if (now != expected[name]) {
            found += name + " became: " + now + "\n  and not: " + expected[name] + "\n";
        }
    }
    return found;
}

} // namespace turnpost::automation
