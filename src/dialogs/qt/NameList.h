#pragma once

#include <QListView>
#include <vector>

namespace turnpost {

/// A list of files or folders with one name per line, as plain text. Names that are too long for
/// the list are cut with "…" and shown whole in a tooltip; the list never scrolls sideways. The
/// arrow keys, Home, End and the page keys select a line at the first press.
class NameList final : public QListView {
  public:
    struct Line {
        QString name;
        QIcon icon;
        /// How deep the line is indented, in steps. The steps of a deep list are smaller, so that
        /// room is left for names.
        int depth = 0;
        QString accessibleDescription;
        /// Why the line cannot be selected, for its tooltip; such a line is grey. Empty when the
        /// line can be selected.
        QString unusable;
    };

    NameList(QWidget* parent, const char* name, const QString& accessibleName);

    /// Fills the list; no line is selected.
    void setLines(std::vector<Line> lines);

    /// Selects the line and scrolls so that it and the lines after it are visible.
    void selectLine(size_t line);

    /// The selected line, or -1.
    int selectedLine() const;

    /// Cuts names in the middle, so that file extensions stay visible.
    void elideInTheMiddle() { setTextElideMode(Qt::ElideMiddle); }

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    class Model;
    class Delegate;
    Model* lineModel_;
};

} // namespace turnpost
