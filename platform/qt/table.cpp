#include "platform/qt/table.h"

#include <QHeaderView>
#include <QScrollBar>
#include <QSignalBlocker>
#include <algorithm>

#include "platform/qt/simple_controls.h"

namespace varno {
namespace {

void SetUpColumns(QHeaderView& header, std::span<const ColumnDesign> columns) {
    const bool hasCaptions = std::any_of(
        columns.begin(), columns.end(), [](const auto& column) { return !column.caption.empty(); });
    header.setVisible(hasCaptions);
    header.setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const int column = static_cast<int>(i);
        header.setSectionResizeMode(column, columns[i].takesRest   ? QHeaderView::Stretch
                                            : columns[i].width > 0 ? QHeaderView::Interactive
                                                                   : QHeaderView::ResizeToContents);
        header.resizeSection(column, ToPixels(columns[i].width));
    }
}

}  // namespace

void TableModel::ShowRows(int count) {
    beginResetModel();
    rows_ = count;
    endResetModel();
}

void TableModel::Repaint() {
    if (rows_ > 0) {
        emit dataChanged(index(0, 0), index(rows_ - 1, columnCount({}) - 1));
    }
}

int TableModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : rows_;
}

int TableModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(columns_.size());
}

// A text that is cut is whole as a tool tip.
QVariant TableModel::data(const QModelIndex& index, int role) const {
    const bool isText = role == Qt::DisplayRole || role == Qt::ToolTipRole;
    return isText && table_.OnText ? ToQt(table_.OnText(index.row(), index.column())) : QVariant();
}

QVariant TableModel::headerData(int section, Qt::Orientation orientation, int role) const {
    return orientation == Qt::Horizontal && role == Qt::DisplayRole
               ? ToQt(columns_[static_cast<std::size_t>(section)].caption)
               : QVariant();
}

int TableView::SelectedRow() const {
    const QModelIndexList selected = selectionModel()->selectedRows();
    return selected.isEmpty() ? -1 : selected.first().row();
}

QItemSelectionModel::SelectionFlags TableView::selectionCommand(const QModelIndex& index,
                                                                const QEvent* /*event*/) const {
    return index.isValid() ? QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows
                           : QItemSelectionModel::NoUpdate;
}

QtTable::QtTable(const ControlDesign& design, QWidget* parent)
    : QtControl(new TableView(parent)), model_(*this, design.columns) {
    widget_->setModel(&model_);
    widget_->setRootIsDecorated(false);
    widget_->setUniformRowHeights(true);
    widget_->setAllColumnsShowFocus(true);
    widget_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    ApplyDesign(design, widget_);
    SetUpColumns(*widget_->header(), design.columns);
    QObject::connect(widget_->selectionModel(), &QItemSelectionModel::selectionChanged, widget_,
                     [this] {
                         if (OnClick && widget_->SelectedRow() >= 0) {
                             OnClick();
                         }
                     });
}

void QtTable::ShowRows(int count, int selected) {
    const QSignalBlocker quiet(widget_->selectionModel());
    const int scrolled = selected < 0 ? 0 : widget_->verticalScrollBar()->value();
    model_.ShowRows(count);
    widget_->doItemsLayout();
    widget_->verticalScrollBar()->setValue(scrolled);
    if (selected >= 0) {
        widget_->setCurrentIndex(model_.index(selected, 0));
        widget_->scrollTo(model_.index(selected, 0));
    }
    widget_->viewport()->update();
}

}  // namespace varno
