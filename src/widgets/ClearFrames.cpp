#include "widgets/ClearFrames.h"

#include <QPainter>
#include <QStyleOption>

namespace turnpost {

namespace {

// The colour to draw over Fusion's outline; an invalid one keeps the outline.
QColor outlineOf(QStyle::PrimitiveElement element, const QStyleOption& option) {
    const bool focus = option.state.testFlag(QStyle::State_HasFocus);
    if (element == QStyle::PE_Frame && focus) {
        return option.palette.color(QPalette::Highlight);
    }
    QColor text = option.palette.color(QPalette::WindowText);
    const bool dark = option.palette.color(QPalette::Window).lightness() < text.lightness();
    // Fusion's own outlines show the focus, but those of options only if a key moved it there.
    if (!dark || (focus && (element == QStyle::PE_FrameLineEdit ||
                            option.state.testFlag(QStyle::State_KeyboardFocusChange)))) {
        return {};
    }
    text.setAlphaF(0.4F);
    return text;
}

} // namespace

void ClearFrames::polish(QPalette& palette) {
    QProxyStyle::polish(palette);
    for (const auto role : {QPalette::Highlight, QPalette::HighlightedText}) {
        palette.setColor(QPalette::Inactive, role, palette.color(QPalette::Active, role));
    }
}

void ClearFrames::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                                QPainter* painter, const QWidget* widget) const {
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    const bool angular =
        element == PE_FrameLineEdit || element == PE_Frame || element == PE_IndicatorCheckBox;
    const bool round = element == PE_IndicatorRadioButton;
    if (!angular && !round) {
        return;
    }
    const QColor colour = outlineOf(element, *option);
    if (!colour.isValid()) {
        return;
    }
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->translate(0.5, 0.5);
    painter->setPen(colour);
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
