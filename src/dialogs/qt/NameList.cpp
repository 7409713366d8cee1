#include "dialogs/qt/NameList.h"

#include "widgets/Controls.h"

#include <QAbstractListModel>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QToolTip>
#include <algorithm>

namespace turnpost {

namespace {

constexpr int lineHeight = 18; // pixels
constexpr int widestStep = 12; // pixels

} // namespace

class NameList::Model final : public QAbstractListModel {
  public:
    using QAbstractListModel::QAbstractListModel;

    int rowCount(const QModelIndex& parent) const override {
        return parent.isValid() ? 0 : static_cast<int>(lines_.size());
    }

    QVariant data(const QModelIndex& index, int role) const override {
        const Line& line = lines_[static_cast<size_t>(index.row())];
        switch (role) {
        case Qt::DisplayRole:
            return line.name;
        case Qt::DecorationRole:
            return line.icon.isNull() ? QVariant() : line.icon;
        case Qt::AccessibleDescriptionRole:
            return line.unusable.isEmpty() ? line.accessibleDescription : line.unusable;
        case Qt::ToolTipRole:
            return line.unusable;
        default:
            return {};
        }
    }

    Qt::ItemFlags flags(const QModelIndex& index) const override {
        const bool usable = index.isValid() && isUsable(index.row());
        return usable ? Qt::ItemIsEnabled | Qt::ItemIsSelectable : Qt::NoItemFlags;
    }

    bool isUsable(int row) const { return lines_[static_cast<size_t>(row)].unusable.isEmpty(); }

    // The first line that can be selected, or -1.
    int firstUsable() const {
        const auto first = std::find_if(lines_.begin(), lines_.end(),
                                        [](const Line& line) { return line.unusable.isEmpty(); });
        return first == lines_.end() ? -1 : static_cast<int>(first - lines_.begin());
    }

    void setLines(std::vector<Line> shown) {
        beginResetModel();
        lines_ = std::move(shown);
        deepest_ = 0;
        for (const Line& line : lines_) {
            deepest_ = std::max(deepest_, line.depth);
        }
        endResetModel();
    }

    int indentation(int row, int width) const {
        const int step = std::min(widestStep, width / 3 / std::max(1, deepest_));
        return lines_[static_cast<size_t>(row)].depth * step;
    }

  private:
    std::vector<Line> lines_;
    int deepest_ = 0;
};

class NameList::Delegate final : public QStyledItemDelegate {
  public:
    Delegate(NameList* list, const Model& model) : QStyledItemDelegate(list), model_(model) {}

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        QStyledItemDelegate::paint(painter, indented(option, index), index);
    }

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        // A line wider than the list would make the list scroll sideways.
        return {1, std::max(lineHeight, QStyledItemDelegate::sizeHint(option, index).height())};
    }

    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override {
        if (event->type() != QEvent::ToolTip || !index.isValid()) {
            return QStyledItemDelegate::helpEvent(event, view, option, index);
        }
        QStyleOptionViewItem item = indented(option, index);
        initStyleOption(&item, index);
        const QStyle* style = view->style();
        const int margin = style->pixelMetric(QStyle::PM_FocusFrameHMargin, &item, view) + 1;
        const QRect text = style->subElementRect(QStyle::SE_ItemViewItemText, &item, view);
        const bool cut = item.fontMetrics.horizontalAdvance(item.text) > text.width() - 2 * margin;
        const QString reason = index.data(Qt::ToolTipRole).toString();
        const QString tip = reason.isEmpty() ? item.text : item.text + "\n" + reason;
        const bool shown = cut || !reason.isEmpty();
        QToolTip::showText(event->globalPos(), shown ? plainTip(tip) : QString(), view);
        return true;
    }

  private:
    QStyleOptionViewItem indented(QStyleOptionViewItem option, const QModelIndex& index) const {
        option.rect.adjust(model_.indentation(index.row(), option.rect.width()), 0, 0, 0);
        return option;
    }

    const Model& model_;
};

NameList::NameList(QWidget* parent, const char* name, const QString& accessibleName)
    : QListView(parent), lineModel_(new Model(this)) {
    setObjectName(name);
    setAccessibleName(accessibleName);
    setModel(lineModel_);
    setItemDelegate(new Delegate(this, *lineModel_));
    setEditTriggers(NoEditTriggers);
    setUniformItemSizes(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
}

void NameList::setLines(std::vector<Line> lines) {
    lineModel_->setLines(std::move(lines));
}

void NameList::selectLine(size_t line) {
    const QModelIndex index = lineModel_->index(static_cast<int>(line), 0);
    setCurrentIndex(index);
    // QListView's own centring is a line off before the list has been drawn.
    doItemsLayout();
    const int linesInSight = viewport()->height() / std::max(1, sizeHintForRow(0));
    verticalScrollBar()->setValue(index.row() - linesInSight / 2);
}

int NameList::selectedLine() const {
    const QModelIndexList selected = selectionModel()->selectedIndexes();
    return selected.isEmpty() ? -1 : selected.first().row();
}

void NameList::keyPressEvent(QKeyEvent* event) {
    const int key = event->key();
    const bool moves = key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_Home ||
                       key == Qt::Key_End || key == Qt::Key_PageUp || key == Qt::Key_PageDown;
    // QListView would move on from a line that has the focus but is not selected.
    if (moves && selectedLine() < 0 && lineModel_->firstUsable() >= 0) {
        setCurrentIndex(model()->index(lineModel_->firstUsable(), 0));
        if (key != Qt::Key_End && key != Qt::Key_PageDown) {
            return;
        }
    }
    QListView::keyPressEvent(event);
}

} // namespace turnpost
