#pragma once

#include <QProxyStyle>

namespace turnpost {

/// The style of all windows: Fusion, whose layouts are the same on every desktop, with outlines
/// that can be seen in a dark palette; its own are darker than the window.
class ClearFrames final : public QProxyStyle {
  public:
    ClearFrames() : QProxyStyle("Fusion") {}

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
};

} // namespace turnpost
