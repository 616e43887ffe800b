#include "platform/qt/row_list.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <algorithm>

namespace varno {
namespace {

void Call(const std::function<void()>& event) {
    if (event) {
        event();
    }
}

bool WalksUpOrDown(const QKeyEvent& event) {
    const int key = event.key();
    return key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp || key == Qt::Key_Home;
}

}  // namespace

RowList::RowList(QWidget* parent) : QListWidget(parent) {
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setUniformItemSizes(true);
    QObject::connect(this, &QListWidget::itemSelectionChanged, this, [this] {
        if (const int row = SelectedRow(); row >= 0) {
            StandAt(row);  // a drag selects before it moves
            Call(OnChosen);
        }
    });
}

int RowList::SelectedRow() const {
    const QModelIndexList selected = selectionModel()->selectedRows();
    return selected.isEmpty() ? -1 : selected.first().row();
}

void RowList::Select(int row) {
    selectionModel()->select(model()->index(row, 0), QItemSelectionModel::ClearAndSelect);
    StandAt(row);
}

void RowList::StandAt(int row) {
    place_ = model()->index(row, 0);
    if (hasFocus()) {
        selectionModel()->setCurrentIndex(place_, QItemSelectionModel::NoUpdate);
    }
}

// What is in sight stays there.
void RowList::TakePlace() {
    if (place_.isValid()) {
        setAutoScroll(false);
        selectionModel()->setCurrentIndex(place_, QItemSelectionModel::NoUpdate);
        setAutoScroll(true);
    }
}

void RowList::LeavePlace() {
    place_ = currentIndex();
    selectionModel()->setCurrentIndex({}, QItemSelectionModel::NoUpdate);
}

void RowList::focusInEvent(QFocusEvent* event) {
    TakePlace();
    QListWidget::focusInEvent(event);
}

void RowList::focusOutEvent(QFocusEvent* event) {
    LeavePlace();
    QListWidget::focusOutEvent(event);
}

// Whatever button or modifier is down: a row is selected, and no row is let go.
QItemSelectionModel::SelectionFlags RowList::selectionCommand(const QModelIndex& index,
                                                              const QEvent* /*event*/) const {
    return index.isValid() ? QItemSelectionModel::ClearAndSelect : QItemSelectionModel::NoUpdate;
}

bool RowList::IsOnSelectedRow(const QMouseEvent& event) const {
    const QModelIndex pressed = indexAt(event.position().toPoint());
    return pressed.isValid() && pressed.row() == SelectedRow();
}

void RowList::mousePressEvent(QMouseEvent* event) {
    const bool again = IsOnSelectedRow(*event);
    QListWidget::mousePressEvent(event);
    if (again) {
        Call(OnChosen);
    }
}

void RowList::mouseDoubleClickEvent(QMouseEvent* event) {
    const bool again = event->button() == Qt::LeftButton && IsOnSelectedRow(*event);
    QListWidget::mouseDoubleClickEvent(event);
    if (again) {
        Call(OnDblClick);
    }
}

// A field over the list sends it keys, too.
void RowList::keyPressEvent(QKeyEvent* event) {
    if (!hasFocus()) {
        TakePlace();
    }
    if (WalksUpOrDown(*event) && SelectedRow() < 0 && count() > 0) {
        setCurrentRow(std::max(0, currentRow()));  // the first such key skips no row
    } else {
        QListWidget::keyPressEvent(event);
    }
    if (!hasFocus()) {
        LeavePlace();
    }
}

}  // namespace varno
