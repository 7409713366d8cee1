#pragma once

#include <QCheckBox>
#include <QPushButton>

namespace turnpost {

/// A push button whose caption wraps; the toolkit's own never does. Leaves Enter to its form.
class CaptionButton final : public QPushButton {
  public:
    using QPushButton::QPushButton;

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
};

/// A check box whose caption wraps beside the box; the whole control can be clicked.
class CaptionCheckBox final : public QCheckBox {
  public:
    using QCheckBox::QCheckBox;

  protected:
    void paintEvent(QPaintEvent* event) override;
    bool hitButton(const QPoint& position) const override { return rect().contains(position); }
};

} // namespace turnpost
