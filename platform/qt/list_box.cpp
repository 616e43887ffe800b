#include "platform/qt/list_box.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <algorithm>
#include <utility>

#include "platform/qt/simple_controls.h"

namespace varno {
namespace {

int KeyCodeOf(const QKeyEvent& event) {
    return event.key() == Qt::Key_Delete ? static_cast<int>(KeyDelete) : static_cast<int>(KeyOther);
}

}  // namespace

QRect WholeRows(const QListWidget& list, QRect room) {
    const int row = list.fontMetrics().height();
    const int frame = 2 * list.frameWidth();
    room.setHeight(std::max(row, room.height() - frame) / row * row + frame);
    return room;
}

int SortedPosition(const QListWidget& list, const QString& text) {
    int low = 0;
    int high = list.count();
    while (low < high) {
        const int middle = (low + high) / 2;
        if (QString::compare(list.item(middle)->text(), text, Qt::CaseInsensitive) <= 0) {
            low = middle + 1;
        } else {
            high = middle;
        }
    }
    return low;
}

RowList::RowList(QtListBox* control, QWidget* parent) : FocusFramed(parent), control_(control) {
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setUniformItemSizes(true);
}

void RowList::mousePressEvent(QMouseEvent* event) {
    const int before = control_->ListIndex();
    QListWidget::mousePressEvent(event);
    const QListWidgetItem* pressed = itemAt(event->position().toPoint());
    // A press on the selected row selects it once more.
    if (pressed != nullptr && row(pressed) == before && control_->OnClick) {
        control_->OnClick();
    }
}

void RowList::mouseDoubleClickEvent(QMouseEvent* event) {
    QListWidget::mouseDoubleClickEvent(event);
    if (itemAt(event->position().toPoint()) != nullptr && control_->OnDblClick) {
        control_->OnDblClick();
    }
}

void RowList::keyPressEvent(QKeyEvent* event) {
    const QString text = event->text();
    if (!text.isEmpty() && control_->OnKeyPress) {
        control_->OnKeyPress(text.at(0).unicode());
    }
    const bool arrow = event->key() == Qt::Key_Down || event->key() == Qt::Key_Up;
    if (arrow && control_->ListIndex() < 0 && count() > 0) {
        setCurrentRow(0);  // the first arrow key selects the first row, it does not skip it
        return;
    }
    QListWidget::keyPressEvent(event);
}

void RowList::keyReleaseEvent(QKeyEvent* event) {
    QListWidget::keyReleaseEvent(event);
    if (!event->isAutoRepeat() && control_->OnKeyUp) {
        control_->OnKeyUp(KeyCodeOf(*event));
    }
}

void RowList::focusInEvent(QFocusEvent* event) {
    QListWidget::focusInEvent(event);
    if (IsNewFocus(*event) && control_->OnGotFocus) {
        control_->OnGotFocus();
    }
}

QtListBox::QtListBox(const ControlDesign& design, QWidget* parent)
    : QtControl(new RowList(this, parent)), sorted_(design.sorted) {
    ApplyDesign(design, widget_);
    if (design.colour != TextColour) {
        UseWhitePaper(widget_, ToQt(design.colour));
    }
    QObject::connect(widget_, &QListWidget::itemSelectionChanged, widget_, [this] {
        if (!quiet_ && ListIndex() >= 0 && OnClick) {
            OnClick();
        }
    });
}

template <class Change>
void QtListBox::Quietly(Change change) {
    const bool before = std::exchange(quiet_, true);
    change();
    quiet_ = before;
}

std::string QtListBox::List(int index) const {
    const QListWidgetItem* item = widget_->item(index);
    return item == nullptr ? std::string() : FromQt(item->text());
}

void QtListBox::AddItem(const std::string& text) {
    InsertItem(sorted_ ? SortedPosition(*widget_, ToQt(text)) : ListCount(), text);
}

void QtListBox::InsertItem(int index, const std::string& text) {
    Quietly([&] { widget_->insertItem(index, ToQt(text)); });
}

void QtListBox::SetItem(int index, const std::string& text) {
    if (QListWidgetItem* item = widget_->item(index)) {
        Quietly([&] { item->setText(ToQt(text)); });
    }
}

void QtListBox::RemoveItem(int index) {
    Quietly([&] {
        const bool selected = index == ListIndex();
        delete widget_->takeItem(index);
        if (selected) {
            widget_->clearSelection();
            widget_->setCurrentItem(nullptr);
        }
    });
}

void QtListBox::Clear() {
    Quietly([&] { widget_->clear(); });
}

void QtListBox::SetPlace(const Place& place) {
    widget_->setGeometry(WholeRows(*widget_, ToPixels(place)));
}

int QtListBox::ListIndex() const {
    const QList<QListWidgetItem*> selected = widget_->selectedItems();
    return selected.isEmpty() ? -1 : widget_->row(selected.first());
}

void QtListBox::SetListIndex(int index) {
    Quietly([&] {
        widget_->setCurrentRow(index);
        if (index < 0) {
            widget_->clearSelection();
        }
    });
}

}  // namespace varno
