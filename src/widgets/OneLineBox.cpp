#include "widgets/OneLineBox.h"

#include "text/InvisibleCharacters.h"
#include "text/Text.h"
#include "text/qt/QtText.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QMenu>
#include <QMimeData>
#include <QSignalBlocker>
#include <QValidator>
#include <algorithm>
#include <limits>

namespace turnpost {

namespace {

bool isLineBreak(QChar c) {
    return c == '\n' || c == '\r' || c == QChar::LineSeparator || c == QChar::ParagraphSeparator;
}

QString lineOf(const QString& text) {
    const bool broken = std::any_of(text.begin(), text.end(), isLineBreak);
    return broken ? toQt(oneLine(fromQt(text))) : text;
}

// The only hook into setText(), which is not virtual. Like setText(), it clears the undo history.
class LineValidator final : public QValidator {
  public:
    using QValidator::QValidator;

    State validate(QString& text, int& cursor) const override {
        cursor = static_cast<int>(lineOf(text.left(cursor)).size());
        text = lineOf(text);
        return Acceptable;
    }
};

} // namespace

OneLineBox::OneLineBox(QWidget* parent) : QLineEdit(parent) {
    // QLineEdit's default limit of 32767 characters would cut longer texts silently.
    setMaxLength(std::numeric_limits<int>::max());
    setValidator(new LineValidator(this));
}

// The text from another program as this box takes it.
QString OneLineBox::foreignLine(const QString& text) const {
    QString line = lineOf(text);
    if (takesAddresses_) {
        line.replace(QChar::Nbsp, QChar::Space);
        // Every invisible character is one UTF-16 unit.
        line.removeIf([](QChar c) { return isInvisible(c.unicode()); });
    }
    return line;
}

// QLineEdit merges an insertion into the preceding undo step until the cursor moves.
void OneLineBox::endUndoStep() {
    const int cursor = cursorPosition();
    if (!hasSelectedText()) {
        setCursorPosition(cursor == 0 ? 1 : cursor - 1);
        setCursorPosition(cursor);
    }
}

void OneLineBox::pasteLine(QClipboard::Mode from) {
    const QString text = foreignLine(QGuiApplication::clipboard()->text(from));
    if (!isReadOnly() && !text.isEmpty()) {
        endUndoStep();
        insert(text);
        endUndoStep();
    }
}

void OneLineBox::keyPressEvent(QKeyEvent* event) {
    if (!event->matches(QKeySequence::Paste)) {
        QLineEdit::keyPressEvent(event);
        return;
    }
    const bool fromSelection = event->key() == Qt::Key_Insert &&
                               event->modifiers() == (Qt::ControlModifier | Qt::ShiftModifier);
    pasteLine(fromSelection ? QClipboard::Selection : QClipboard::Clipboard);
}

void OneLineBox::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::MiddleButton) {
        QLineEdit::mouseReleaseEvent(event);
    } else if (QGuiApplication::clipboard()->supportsSelection()) {
        deselect();
        pasteLine(QClipboard::Selection);
    }
}

void OneLineBox::contextMenuEvent(QContextMenuEvent* event) {
    QMenu* menu = createStandardContextMenu();
    menu->setAttribute(Qt::WA_DeleteOnClose);
    // The item is found by its text, because only some versions of Qt give it an object name.
    for (QAction* item : menu->actions()) {
        if (item->text().section('\t', 0, 0) == QLineEdit::tr("&Paste")) {
            item->disconnect(this);
            connect(item, &QAction::triggered, this, [this] { pasteLine(QClipboard::Clipboard); });
        }
    }
    menu->popup(event->globalPos());
}

void OneLineBox::dropEvent(QDropEvent* event) {
    QMimeData line;
    line.setText(foreignLine(event->mimeData()->text()));
    QDropEvent drop(event->position(), event->possibleActions(), &line, event->buttons(),
                    event->modifiers());
    drop.setDropAction(event->dropAction());
    QLineEdit::dropEvent(&drop);
    event->setDropAction(drop.dropAction());
    event->setAccepted(drop.isAccepted());
}

void OneLineBox::inputMethodEvent(QInputMethodEvent* event) {
    // Qt writes what a dead key or an input method commits into read-only boxes too.
    if (isReadOnly()) {
        event->ignore();
        return;
    }
    QInputMethodEvent line(event->preeditString(), event->attributes());
    line.setCommitString(lineOf(event->commitString()), event->replacementStart(),
                         event->replacementLength());
    QLineEdit::inputMethodEvent(&line);
    event->setAccepted(line.isAccepted());
}

void showLine(QLineEdit* box, const std::string& text) {
    const QString line = lineOf(toQt(text));
    if (box->text() != line) {
        const QSignalBlocker blocker(box);
        box->setText(line);
        box->setCursorPosition(0);
    }
}

} // namespace turnpost
