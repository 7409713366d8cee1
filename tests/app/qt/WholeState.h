#pragma once

#include "automation/Host.h"
#include "files/Files.h"
#include "text/qt/QtText.h"

#include <QAction>
#include <QRegularExpression>
#include <optional>

namespace turnpost::automation {

/// Everything that a command could change, as flat lines: name and value.
using State = std::map<std::string, std::string>;

/// The lines that a command is for. Nothing else may change.
struct Change {
    /// A name, or a pattern of names with * and [a-b]. Every line that matches counts.
    std::string lines;
    /// The value after it, of at least one line another one than before; a # in it is the number of
    /// the line's player. Without it the value of each line must be another one than before.
    std::optional<std::string> becomes = {};
};
using Changes = std::vector<Change>;

/// On one line, and the same wherever the folder lies and whichever separator the system has.
inline std::string flat(const std::string& text, const std::string& folder) {
    return toQt(text)
        .replace(toQt(folder), "~")
        .replace('\\', '/')
        .replace("\r\n", "|")
        .replace('\n', '|')
        .toStdString();
}

/// Whether the text is the pattern, in which * and [a-b] stand for any text and a character.
inline bool matches(const std::string& pattern, const std::string& text) {
    const QString expression = QRegularExpression::wildcardToRegularExpression(toQt(pattern));
    return QRegularExpression(expression).match(toQt(text)).hasMatch();
}

/// Takes the state of the program at this desk; every file in its folder belongs to it.
class StateTaker {
  public:
    explicit StateTaker(Host& host) : host_(host) {}

    State take() {
        addValues(host_.desktop().app().values());
        addGame(host_.desktop().app().values().game);
        for (QWidget* control : host_.window().findChildren<QWidget*>()) {
            addControl(*control);
        }
        for (const QAction* item : host_.window().findChildren<QAction*>()) {
            const std::string name = "menu." + item->objectName().toStdString();
            add(name, item->text());
            add(name + ".tip", item->toolTip());
            add(name + ".enabled", item->isEnabled());
        }
        const QWidget* focus = host_.window().focusWidget();
        add("window.focus", focus == nullptr ? QString() : focus->objectName());
        add("window.title", host_.window().windowTitle());
        addFiles();
        return std::move(state_);
    }

  private:
    void add(const std::string& name, const std::string& value) {
        state_[name] += flat(value, host_.folder());
    }
    void add(const std::string& name, const QString& value) { add(name, value.toStdString()); }
    void add(const std::string& name, int value) { add(name, std::to_string(value)); }

    void addValues(const SharedValues& values) {
        add("settings.HostName", values.settings.HostName);
        add("settings.HostEmail", values.settings.HostEmail);
        add("settings.SmtpServer", values.settings.SmtpServer);
        add("settings.DefaultGameFile", values.settings.DefaultGameFile);
        for (size_t i = 0; i < values.settings.StoredGames.size(); ++i) {
            add("settings.StoredGameName" + at(i), values.settings.StoredGames[i].StoredGameName);
            add("settings.StoredGameFile" + at(i), values.settings.StoredGames[i].StoredGameFile);
        }
        add("message.MessageSubject", values.message.MessageSubject);
        add("message.MessageBody", values.message.MessageBody);
        add("attachments.SendMFiles", values.attachments.SendMFiles);
        add("attachments.SendXYFile", values.attachments.SendXYFile);
        for (size_t i = 0; i < values.attachments.ExtraAttachments.size(); ++i) {
            add("attachments.Extra" + at(i), values.attachments.ExtraAttachments[i]);
        }
        for (size_t i = 0; i < values.report.size(); ++i) {
            add("report" + at(i), values.report[i]);
        }
        add("LoadDefaultPending", values.LoadDefaultPending);
        add("GameNameToStore", values.GameNameToStore);
    }

    void addGame(const GameDetails& game) {
        add("game.GameName", game.GameName);
        add("game.GamePath", game.GamePath);
        add("game.HostFileName", game.HostFileName);
        add("game.GameYear", game.GameYear);
        for (size_t i = 0; i < game.rows.size(); ++i) {
            add("game.IncludePlayer" + at(i), game.rows[i].IncludePlayer);
            add("game.PlayerName" + at(i), game.rows[i].PlayerName);
            add("game.PlayerEmail" + at(i), game.rows[i].PlayerEmail);
            add("game.AltEmail" + at(i), game.rows[i].AltEmail);
            add("game.GameFile" + at(i), game.rows[i].GameFile);
            add("game.Shown" + at(i), game.rows[i].Shown);
        }
    }

    // The controls of the player rows are called row.…, all others window.….
    void addControl(const QWidget& control) {
        static const QRegularExpression ofRow("^(PlayNum|Include|Player|AltEmail|GameFile).*\\(");
        if (control.objectName().isEmpty() || control.objectName().startsWith("qt_")) {
            return; // The toolkit's own, inside ours.
        }
        const bool isRow = ofRow.match(control.objectName()).hasMatch();
        const std::string name = (isRow ? "row." : "window.") + control.objectName().toStdString();
        const bool ticks = control.inherits("QCheckBox") || control.inherits("QRadioButton");
        const QString text = control.property("text").toString();
        add(name, ticks ? QString::number(control.property("checked").toBool()) : text);
        add(name + ".caption", ticks ? text : QString());
        add(name + ".shown", !control.isHidden());
        add(name + ".enabled", control.isEnabled());
        add(name + ".readOnly", control.property("readOnly").toBool());
        add(name + ".note", control.toolTip() + control.accessibleDescription());
        add(name + ".width", control.width());
    }

    void addFiles() {
        namespace fs = std::filesystem;
        const fs::path folder = toNativePath(host_.folder());
        for (const auto& entry : fs::recursive_directory_iterator(folder)) {
            const std::string path = fromNativePath(entry.path());
            const bool isFile = entry.is_regular_file();
            add("file." + flat(path, host_.folder()).substr(2), isFile ? readFile(path) : "folder");
        }
    }

    static std::string at(size_t index) { return "(" + std::to_string(index) + ")"; }

    Host& host_;
    State state_;
};

/// What of the two states is not as the changes say; a line each.
inline std::string faults(State before, State after, const Changes& changes) {
    const std::string none = "(none)";
    for (const auto& [name, value] : State(before)) {
        after.try_emplace(name, none);
    }
    for (const auto& [name, value] : after) {
        before.try_emplace(name, none);
    }
    std::string found;
    const auto fault = [&](const std::string& name, const std::string& expected) {
        found += name + ": " + before[name] + "\n  became: " + after[name] +
                 "\n  and not: " + expected + "\n";
    };
    State others = before;
    for (const Change& change : changes) {
        bool differs = false;
        for (const auto& [name, value] : before) {
            if (!matches(change.lines, name)) {
                continue;
            }
            others.erase(name);
            differs = differs || value != after[name];
            const int player = toQt(name).section('(', 1).section(')', 0, 0).toInt() + 1;
            const std::string becomes = toQt(change.becomes.value_or("another"))
                                            .replace('#', QString::number(player))
                                            .toStdString();
            if (change.becomes ? after[name] != becomes : after[name] == value) {
                fault(name, becomes);
            }
        }
        if (!differs) {
            found += change.lines + ": did not change\n";
        }
    }
    for (const auto& [name, value] : others) {
        if (after[name] != value) {
            fault(name, "as before");
        }
    }
    return found;
}

} // namespace turnpost::automation
