#include "platform/qt/list_box.h"

#include <QKeyEvent>
#include <QSignalBlocker>
#include <algorithm>

#include "platform/qt/keys.h"
#include "platform/qt/simple_controls.h"

namespace varno {

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

void ListBoxRows::keyPressEvent(QKeyEvent* event) {
    if (IsTyping(*event) && !IsCommand(*event) && control_->OnKeyPress) {
        control_->OnKeyPress(event->text().at(0).unicode());
    }
    RowList::keyPressEvent(event);
}

void ListBoxRows::keyReleaseEvent(QKeyEvent* event) {
    RowList::keyReleaseEvent(event);
    if (!event->isAutoRepeat() && control_->OnKeyUp) {
        control_->OnKeyUp(KeyCodeOf(*event));
    }
}

void ListBoxRows::focusInEvent(QFocusEvent* event) {
    RowList::focusInEvent(event);
    if (IsNewFocus(*event) && control_->OnGotFocus) {
        control_->OnGotFocus();
    }
}

QtListBox::QtListBox(const ControlDesign& design, QWidget* parent)
    : QtControl(new ListBoxRows(this, parent)), sorted_(design.sorted) {
    ApplyDesign(design, widget_);
    if (design.colour != TextColour) {
        UseWhitePaper(widget_, ToQt(design.colour));
    }
    widget_->OnChosen = [this] {
        if (OnClick) {
            OnClick();
        }
    };
    widget_->OnDblClick = [this] {
        if (OnDblClick) {
            OnDblClick();
        }
    };
}

std::string QtListBox::List(int index) const {
    const QListWidgetItem* item = widget_->item(index);
    return item == nullptr ? std::string() : FromQt(item->text());
}

void QtListBox::AddItem(const std::string& text) {
    InsertItem(sorted_ ? SortedPosition(*widget_, ToQt(text)) : ListCount(), text);
}

void QtListBox::InsertItem(int index, const std::string& text) {
    const QSignalBlocker quiet(widget_);
    widget_->insertItem(index, ToQt(text));
}

void QtListBox::SetItem(int index, const std::string& text) {
    if (QListWidgetItem* item = widget_->item(index)) {
        const QSignalBlocker quiet(widget_);
        item->setText(ToQt(text));
    }
}

void QtListBox::RemoveItem(int index) {
    const QSignalBlocker quiet(widget_);
    const bool selected = index == ListIndex();
    delete widget_->takeItem(index);
    if (selected) {
        widget_->clearSelection();
        widget_->setCurrentItem(nullptr);
    }
}

void QtListBox::Clear() {
    const QSignalBlocker quiet(widget_);
    widget_->clear();
}

void QtListBox::SetPlace(const Place& place) {
    widget_->setGeometry(WholeRows(*widget_, ToPixels(place)));
}

}  // namespace varno
