#include "widgets/Form.h"

#include "text/qt/QtText.h"
#include "widgets/Controls.h"
#include "widgets/OneLineBox.h"
#include "widgets/Twips.h"
#include "widgets/WindowFrame.h"

#include <QKeyEvent>
#include <QLabel>
#include <QPlainTextEdit>
#include <QTextOption>
#include <algorithm>

namespace turnpost {

namespace {

// The largest size at which every caption fits its control with the usual fonts.
constexpr int fontPixels = 11;

// Lowers a caption to the height of the text in the box beside it.
constexpr int captionDrop = 2; // pixels

void showAsReadOnly(QWidget* box) {
    QPalette palette = box->palette();
    palette.setColor(QPalette::Base, palette.color(QPalette::Window));
    box->setPalette(palette);
}

} // namespace

Form::Form(QWidget* parent, const QString& name, const QString& caption, QSize clientSize,
           Frame frame)
    : QDialog(parent), clientArea_(new QWidget(this)) {
    if (frame == Frame::Dialog) {
        frameAsDialog(this);
    } else {
        setWindowFlags(Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                       Qt::WindowSystemMenuHint | Qt::WindowMinimizeButtonHint |
                       Qt::WindowCloseButtonHint | Qt::MSWindowsFixedSizeDialogHint);
        centreOnScreen(this);
    }
    setObjectName(name);
    setWindowTitle(caption);
    QFont small = font();
    small.setPixelSize(fontPixels);
    setFont(small);
    clientArea_->resize(toPixels(clientSize.width()), toPixels(clientSize.height()));
    setFixedSize(clientArea_->size());
}

void Form::setMenuHeight(int pixels) {
    clientArea_->move(0, pixels);
    setFixedSize(clientArea_->width(), clientArea_->height() + pixels);
}

void Form::keyPressEvent(QKeyEvent* event) {
    // QDialog would close on Escape, and press a button without the focus on Enter.
    event->ignore();
    auto* button = qobject_cast<QPushButton*>(focusWidget());
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    // A key that is held down presses the button once.
    if (enter && button != nullptr && enterPressesButtons() && !event->isAutoRepeat()) {
        event->accept();
        button->click();
    }
}

QLabel* Form::addLabel(const QString& name, const QString& caption, const QRect& place) {
    auto* label = new QLabel(clientArea_);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    label->setContentsMargins(0, captionDrop, 0, 0);
    label->setWordWrap(true);
    label->setText(caption);
    label->setGeometry(place);
    return label;
}

QLineEdit* Form::addTextBox(const QString& name, const QRect& place,
                            const QString& accessibleName) {
    return makeTextBox(clientArea_, name, place, accessibleName);
}

QPlainTextEdit* Form::addTextArea(const char* name, const QRect& place,
                                  const QString& accessibleName) {
    auto* box = new QPlainTextEdit(clientArea_);
    box->setObjectName(name);
    box->setGeometry(place);
    box->setAccessibleName(accessibleName);
    box->setTabChangesFocus(true);
    return box;
}

QPushButton* Form::addButton(const QString& name, const QString& caption, const QRect& place) {
    auto* button = new CaptionButton(caption, clientArea_);
    button->setObjectName(name);
    button->setGeometry(place);
    button->setAutoDefault(false);
    return button;
}

QLineEdit* makeTextBox(QWidget* parent, const QString& name, const QRect& place,
                       const QString& accessibleName) {
    auto* box = new OneLineBox(parent);
    box->setObjectName(name);
    box->setGeometry(place);
    box->setAccessibleName(accessibleName);
    return box;
}

void makeReadOnly(QLineEdit* box) {
    box->setReadOnly(true);
    showAsReadOnly(box);
}

void makeReadOnly(QPlainTextEdit* box) {
    box->setReadOnly(true);
    // There may be no scroll bar, so the end of a long text must be reachable by keyboard.
    box->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    showAsReadOnly(box);
}

void takeAddresses(QLineEdit* box) {
    static_cast<OneLineBox*>(box)->takeAddresses();
}

void showText(QPlainTextEdit* box, const QString& text) {
    constexpr qsizetype longLine = 16384;
    qsizetype longest = 0;
    for (qsizetype from = 0; from < text.size();) {
        const qsizetype end = text.indexOf('\n', from);
        const qsizetype next = end < 0 ? text.size() : end + 1;
        longest = std::max(longest, next - from);
        from = next;
    }
    // Qt looks for the end of the word at each line that it breaks between words. With a megabyte
    // without a blank the window would not respond for more than a minute.
    box->setWordWrapMode(longest > longLine ? QTextOption::WrapAnywhere
                                            : QTextOption::WrapAtWordBoundaryOrAnywhere);
    box->setPlainText(text);
}

std::string textOf(const QPlainTextEdit* box) {
    // toPlainText() would turn non-breaking spaces into plain ones.
    QString text = box->document()->toRawText();
    text.replace(QChar::ParagraphSeparator, "\r\n");
    text.replace(QChar::LineSeparator, "\r\n");
    return fromQt(text);
}

} // namespace turnpost
