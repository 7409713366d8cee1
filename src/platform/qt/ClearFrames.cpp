#include "platform/qt/ClearFrames.h"

#include <QPainter>
#include <QStyleOption>

namespace turnpost {

namespace {

// Between the window and its text; three times as light as a usual dark window.
QColor outlineOf(const QPalette& palette) {
    QColor colour = palette.color(QPalette::WindowText);
    colour.setAlphaF(0.4F);
    return colour;
}

} // namespace

void ClearFrames::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                                QPainter* painter, const QWidget* widget) const {
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    const QPalette& palette = option->palette;
    const bool dark = palette.color(QPalette::Window).lightness() <
                      palette.color(QPalette::WindowText).lightness();
    const bool angular =
        element == PE_FrameLineEdit || element == PE_Frame || element == PE_IndicatorCheckBox;
    const bool round = element == PE_IndicatorRadioButton;
    // Fusion shows the focus in the outline, that of options only when it came by a key.
    const bool showsFocus =
        option->state.testFlag(State_HasFocus) &&
        (element == PE_FrameLineEdit || option->state.testFlag(State_KeyboardFocusChange));
    if (!dark || showsFocus || !(angular || round)) {
        return;
    }
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->translate(0.5, 0.5);
    painter->setPen(outlineOf(palette));
    painter->setBrush(Qt::NoBrush);
    const QRect outline = option->rect.adjusted(0, 0, -1, -1);
    if (round) {
        painter->drawEllipse(outline);
    } else {
        const qreal radius = element == PE_FrameLineEdit ? 2 : 0;
        painter->drawRoundedRect(outline, radius, radius);
    }
    painter->restore();
}

} // namespace turnpost
