#include "widgets/Controls.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QStringList>
#include <QStyleOptionButton>
#include <QStylePainter>
#include <QToolTip>

namespace turnpost {

void CaptionButton::keyPressEvent(QKeyEvent* event) {
    // On some desktops Qt lets Enter press a button, on others not.
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        event->ignore();
        return;
    }
    QPushButton::keyPressEvent(event);
}

void CaptionButton::paintEvent(QPaintEvent*) {
    QStyleOptionButton option;
    initStyleOption(&option);
    const QString caption = option.text;
    option.text.clear();
    QStylePainter painter(this);
    painter.drawControl(QStyle::CE_PushButton, option);
    painter.drawItemText(rect().adjusted(1, 1, -1, -1),
                         Qt::AlignCenter | Qt::TextWordWrap | Qt::TextShowMnemonic, palette(),
                         isEnabled(), caption, QPalette::ButtonText);
}

void CaptionCheckBox::paintEvent(QPaintEvent*) {
    QStyleOptionButton option;
    initStyleOption(&option);
    const QString caption = option.text;
    const int boxWidth = style()->pixelMetric(QStyle::PM_IndicatorWidth, &option, this);
    const int boxHeight = style()->pixelMetric(QStyle::PM_IndicatorHeight, &option, this);
    option.rect = QRect(0, (height() - boxHeight) / 2, boxWidth, boxHeight);
    QStylePainter painter(this);
    painter.drawPrimitive(QStyle::PE_IndicatorCheckBox, option);
    const QRect textRect = rect().adjusted(boxWidth + 4, 0, 0, 0);
    painter.drawItemText(textRect, Qt::AlignVCenter | Qt::TextWordWrap | Qt::TextShowMnemonic,
                         palette(), isEnabled(), caption, QPalette::WindowText);
    if (hasFocus()) {
        QStyleOptionFocusRect focus;
        focus.QStyleOption::operator=(option);
        focus.rect = textRect;
        painter.drawPrimitive(QStyle::PE_FrameFocusRect, focus);
    }
}

bool ElidingComboBox::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip) {
        return QComboBox::event(event);
    }
    const QPoint place = static_cast<QHelpEvent*>(event)->globalPos();
    QToolTip::showText(place, shownText() == currentText() ? QString() : plainTip(currentText()),
                       this);
    return true;
}

QString ElidingComboBox::shownText() const {
    QStyleOptionComboBox option;
    initStyleOption(&option);
    const QRect field =
        style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this);
    return fontMetrics().elidedText(currentText(), Qt::ElideMiddle, field.width() - 4);
}

void ElidingComboBox::paintEvent(QPaintEvent*) {
    QStyleOptionComboBox option;
    initStyleOption(&option);
    option.currentText = shownText();
    QStylePainter painter(this);
    painter.drawComplexControl(QStyle::CC_ComboBox, option);
    painter.drawControl(QStyle::CE_ComboBoxLabel, option);
}

QString plainTip(const QString& text) {
    constexpr qsizetype lineLength = 60;
    QStringList lines;
    for (QString line : text.split('\n')) {
        while (line.size() > lineLength) {
            const qsizetype blank = line.lastIndexOf(' ', lineLength - 1);
            const qsizetype end = blank < 0 ? lineLength : blank + 1;
            lines += line.left(end).toHtmlEscaped();
            line.remove(0, end);
        }
        lines += line.toHtmlEscaped();
    }
    return "<p style='white-space:pre'>" + lines.join("<br>") + "</p>";
}

} // namespace turnpost
