#pragma once

#include <QCheckBox>
#include <QComboBox>
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

/// A drop-down list that cuts its text with "…" in the middle when it is too long, and shows it
/// whole in a tip; the toolkit's own clips it.
class ElidingComboBox final : public QComboBox {
  public:
    explicit ElidingComboBox(QWidget* parent) : QComboBox(parent) {}

  protected:
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;

  private:
    QString shownText() const;
};

/// A tip with this text, plain whatever it holds, with its own line breaks (LF) and one after each
/// 60 characters of a line: the toolkit would take what looks like markup for markup, and breaks no
/// line without blanks.
QString plainTip(const QString& text);

} // namespace turnpost
