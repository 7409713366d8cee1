#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QPushButton>

namespace turnpost {

/// A push button whose caption wraps, unlike QPushButton's. It leaves Enter to its form.
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

/// A drop-down list that cuts a long text with "…" in the middle and shows all of it in a tooltip.
/// QComboBox only clips it.
class ElidingComboBox final : public QComboBox {
  public:
    explicit ElidingComboBox(QWidget* parent) : QComboBox(parent) {}

  protected:
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;

  private:
    QString shownText() const;
};

/// A tooltip with this text as plain text; Qt would interpret markup in it. Line breaks (LF) are
/// kept. A line of more than 60 characters is broken after a blank, or anywhere if it has none.
QString plainTip(const QString& text);

} // namespace turnpost
