#pragma once

#include <QClipboard>
#include <QLineEdit>

namespace turnpost {

/// A one-line text box that holds one line: line breaks (CR LF, CR, LF, U+2028, U+2029) that are
/// pasted, dropped, entered by an input method or set become one blank each. The toolkit's own
/// keeps them, out of sight. No limit is set to the length. Undo takes a paste back as a whole.
class OneLineBox final : public QLineEdit {
  public:
    explicit OneLineBox(QWidget* parent);

    /// What is pasted or dropped is an address from now on: invisible characters are left out, and
    /// a hard blank becomes a plain one. What is set or typed stays as it is.
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

/// Shows a text in a one-line box. A box that shows it already keeps its cursor and its undo; any
/// other shows the new text from its beginning. Tells nobody of a change.
void showLine(QLineEdit* box, const std::string& text);

} // namespace turnpost
