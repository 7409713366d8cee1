#pragma once

#include <QClipboard>
#include <QLineEdit>

namespace turnpost {

/// A text box for one line of any length. QLineEdit keeps line breaks (CR LF, CR, LF, U+2028,
/// U+2029) without showing them; here each becomes a blank, whether it was pasted, dropped, entered
/// by an input method or set. Undo takes a paste back as a whole.
class OneLineBox final : public QLineEdit {
  public:
    explicit OneLineBox(QWidget* parent);

    /// From now on, a text that is pasted or dropped is an address: it loses its invisible
    /// characters, and non-breaking spaces become plain ones. A text that is set or typed keeps
    /// them.
    void takeAddresses() { takesAddresses_ = true; }

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;

  private:
    QString foreignLine(const QString& text) const;
    void endUndoStep();
    void pasteLine(QClipboard::Mode from);

    bool takesAddresses_ = false;
};

/// Shows a text in a one-line box from its beginning. A box that shows it already keeps its cursor
/// and its undo history. Emits no signal.
void showLine(QLineEdit* box, const std::string& text);

} // namespace turnpost
