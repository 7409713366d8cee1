#pragma once

#include <QProxyStyle>

namespace turnpost {

/// The style of all windows: Fusion, whose layouts are the same on every desktop. In a dark palette
/// Fusion's outlines are darker than the window, so lighter ones are drawn over them. While another
/// window is active, selections and the progress bar keep their colours: Windows would give them
/// those of the window.
class ClearFrames final : public QProxyStyle {
  public:
    ClearFrames() : QProxyStyle("Fusion") {}

    using QProxyStyle::polish;
    void polish(QPalette& palette) override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
};

} // namespace turnpost
