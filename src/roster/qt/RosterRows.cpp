#include "roster/qt/RosterRows.h"

#include "text/qt/QtText.h"
#include "widgets/Controls.h"
#include "widgets/Form.h"
#include "widgets/OneLineBox.h"
#include "widgets/Twips.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QSignalBlocker>

namespace turnpost {

namespace {

constexpr int firstTop = 1440;
constexpr int rowDistance = 360;

int topOf(int index) {
    return firstTop + rowDistance * index;
}

QString nameOf(const char* control, int index) {
    return QString("%1(%2)").arg(control).arg(index);
}

} // namespace

RosterRows::RosterRows(QWidget* client, GameDetails& game) : QObject(client), game_(game) {
    for (int i = 0; i < rowCount; ++i) {
        rows_[static_cast<size_t>(i)] = makeRow(i, client);
    }
}

RosterRows::Row RosterRows::makeRow(int index, QWidget* client) {
    const QString player = QString("Player %1 ").arg(index + 1);
    const int top = topOf(index);
    Row row{};
    row.PlayNum = new QLabel(client);
    row.PlayNum->setTextFormat(Qt::PlainText);
    row.PlayNum->setObjectName(nameOf("PlayNum", index));
    row.PlayNum->setGeometry(twipsRect(180, top, 255, 255));
    row.IncludePlayer = new QCheckBox(client);
    row.IncludePlayer->setObjectName(nameOf("IncludePlayer", index));
    row.IncludePlayer->setAccessibleName(player + "included");
    row.IncludePlayer->setGeometry(twipsRect(480, top, 255, 255));
    connect(row.IncludePlayer, &QCheckBox::toggled, this,
            [this, index](bool ticked) { game_.row(index).IncludePlayer = ticked ? 1 : 0; });
    row.PlayerName =
        addBox(client, index, "PlayerName", player + "name", 840, 2100, &PlayerSlot::PlayerName);
    row.PlayerEmail = addBox(client, index, "PlayerEmail", player + "e-mail address", 3060, 2400,
                             &PlayerSlot::PlayerEmail);
    row.AltEmail = addBox(client, index, "AltEmail", player + "alternate e-mail address", 5580,
                          2400, &PlayerSlot::AltEmail);
    takeAddresses(row.PlayerEmail);
    takeAddresses(row.AltEmail);
    row.GameFile =
        addBox(client, index, "GameFile", player + "turn file", 8100, 1275, &PlayerSlot::GameFile);
    makeReadOnly(row.GameFile);
    return row;
}

QLineEdit* RosterRows::addBox(QWidget* client, int index, const char* name,
                              const QString& accessibleName, int left, int width,
                              std::string PlayerSlot::*field) {
    QLineEdit* box = makeTextBox(client, nameOf(name, index),
                                 twipsRect(left, topOf(index), width, 285), accessibleName);
    connect(box, &QLineEdit::textChanged, this,
            [this, index, field](const QString& text) { game_.row(index).*field = fromQt(text); });
    return box;
}

void RosterRows::showGame() {
    for (int i = 0; i < rowCount; ++i) {
        const PlayerSlot& slot = game_.row(i);
        const Row& row = rows_[static_cast<size_t>(i)];
        row.PlayNum->setText(QString::number(i + 1));
        {
            // A file may hold another number than 1 for a tick; showing it must not change it.
            const QSignalBlocker blocker(row.IncludePlayer);
            row.IncludePlayer->setChecked(slot.IncludePlayer != 0);
        }
        showLine(row.PlayerName, slot.PlayerName);
        showLine(row.PlayerEmail, slot.PlayerEmail);
        showLine(row.AltEmail, slot.AltEmail);
        showLine(row.GameFile, slot.GameFile);
        QWidget* const controls[] = {row.PlayNum,     row.IncludePlayer, row.PlayerName,
                                     row.PlayerEmail, row.AltEmail,      row.GameFile};
        for (QWidget* control : controls) {
            control->setVisible(slot.Shown);
        }
    }
}

void RosterRows::showNotes(const std::array<std::string, rowCount>& notes) {
    for (size_t i = 0; i < notes.size(); ++i) {
        const QString note = toQt(notes[i]).replace("\r\n", "\n").trimmed();
        for (QWidget* control : {static_cast<QWidget*>(rows_[i].PlayNum),
                                 static_cast<QWidget*>(rows_[i].IncludePlayer)}) {
            control->setToolTip(note.isEmpty() ? QString() : plainTip(note));
            control->setAccessibleDescription(note);
        }
    }
}

} // namespace turnpost
