#pragma once

#include <QListView>
#include <vector>

namespace turnpost {

/// A list of files or folders, one name a line, as plain text. Names that are too long for the list
/// are cut with "…" and shown whole in a tip; the list never scrolls sideways. Arrows, Home, End
/// and the page keys select a line from the first press.
class NameList final : public QListView {
  public:
    struct Line {
        QString name;
        QIcon icon;
        /// How far the line is indented. A deep list indents less, so that room is left for names.
        int depth = 0;
        QString accessibleDescription;
        /// Why the line cannot be selected; it is grey then, and its tip says this. Empty when it
        /// can.
        QString unusable;
    };

    NameList(QWidget* parent, const char* name, const QString& accessibleName);

    /// Fills the list; no line is selected.
    void setLines(std::vector<Line> lines);

    /// Selects the line and brings it into sight with what follows.
    void selectLine(size_t line);

    /// The selected line, or -1.
    int selectedLine() const;

    /// Where names are cut: files keep their extension in sight.
    void elideInTheMiddle() { setTextElideMode(Qt::ElideMiddle); }

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    class Model;
    class Delegate;
    Model* lineModel_;
};

} // namespace turnpost
