#include "platform/qt/simple_combo.h"

#include <QKeyEvent>
#include <QSignalBlocker>
#include <algorithm>

#include "platform/qt/focus_framed.h"
#include "platform/qt/list_box.h"
#include "platform/qt/simple_controls.h"

namespace varno {

ComboPanel::ComboPanel(QtSimpleCombo* control, QWidget* parent)
    : QWidget(parent),
      field(new QLineEdit(this)),
      list(new FocusFramed<QListWidget>(this)),
      control_(control) {
    setFocusProxy(field);
    list->setUniformItemSizes(true);
    list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    field->installEventFilter(this);
    QObject::connect(list, &QListWidget::itemSelectionChanged, this, [this] {
        const QList<QListWidgetItem*> selected = list->selectedItems();
        if (!selected.isEmpty()) {
            Choose(selected.first());
        }
    });
    QObject::connect(list, &QListWidget::itemPressed, this,
                     [this](const QListWidgetItem* item) { Choose(item); });
    QObject::connect(list, &QListWidget::itemDoubleClicked, this, [this] {
        if (control_->OnDblClick) {
            control_->OnDblClick();
        }
    });
}

void ComboPanel::Choose(const QListWidgetItem* item) {
    if (field->text() != item->text()) {
        const QSignalBlocker quiet(field);
        field->setText(item->text());
    }
    if (control_->OnClick) {
        control_->OnClick();
    }
}

void ComboPanel::resizeEvent(QResizeEvent* /*event*/) {
    const int fieldHeight = field->sizeHint().height();
    field->setGeometry(0, 0, width(), fieldHeight);
    list->setGeometry(WholeRows(*list, QRect(0, fieldHeight, width(), height() - fieldHeight)));
}

// The arrow keys in the field walk through the list.
bool ComboPanel::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        const int row = list->currentRow();
        const int last = list->count() - 1;
        if (key->key() == Qt::Key_Down && last >= 0) {
            list->setCurrentRow(std::min(row + 1, last));
            return true;
        }
        if (key->key() == Qt::Key_Up && last >= 0) {
            list->setCurrentRow(std::max(row - 1, 0));
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

QtSimpleCombo::QtSimpleCombo(const ControlDesign& design, QWidget* parent)
    : QtControl(new ComboPanel(this, parent)), sorted_(design.sorted) {
    ApplyDesign(design, widget_);
    widget_->setAccessibleName(QString());  // its halves have names of their own
    widget_->field->setObjectName(ToQt(design.name) + ".Edit");
    widget_->field->setAccessibleName(ToQt(design.accessibleName));
    widget_->list->setObjectName(ToQt(design.name) + ".List");
    widget_->list->setAccessibleName(ToQt(design.listAccessibleName));
    for (QWidget* half :
         {static_cast<QWidget*>(widget_->field), static_cast<QWidget*>(widget_->list)}) {
        half->setFont(ToQt(design.font));
        UseWhitePaper(half, ToQt(design.colour));
    }
    QObject::connect(widget_->field, &QLineEdit::textChanged, widget_, [this] {
        FollowText();
        if (OnChange) {
            OnChange();
        }
    });
}

void QtSimpleCombo::AddItems(std::span<const std::string> items) {
    QStringList texts;
    texts.reserve(static_cast<qsizetype>(items.size()));
    for (int row = 0; row < ListCount(); ++row) {
        texts += widget_->list->item(row)->text();
    }
    for (const std::string& item : items) {
        texts += ToQt(item);
    }
    if (sorted_) {
        std::stable_sort(texts.begin(), texts.end(), [](const QString& a, const QString& b) {
            return QString::compare(a, b, Qt::CaseInsensitive) < 0;
        });
    }
    const QSignalBlocker quiet(widget_->list);
    widget_->list->clear();
    widget_->list->addItems(texts);
}

std::string QtSimpleCombo::List(int index) const {
    const QListWidgetItem* item = widget_->list->item(index);
    return item == nullptr ? std::string() : FromQt(item->text());
}

void QtSimpleCombo::FollowText() {
    const QSignalBlocker quiet(widget_->list);
    const QString text = widget_->field->text();
    const QListWidgetItem* current = widget_->list->currentItem();
    if (current != nullptr && current->text() == text) {
        return;
    }
    const auto exact = widget_->list->findItems(text, Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (!exact.isEmpty()) {
        widget_->list->setCurrentItem(exact.first());
        return;
    }
    widget_->list->clearSelection();
    widget_->list->setCurrentItem(nullptr);
    const auto starting = widget_->list->findItems(text, Qt::MatchStartsWith);
    if (!text.isEmpty() && !starting.isEmpty()) {
        widget_->list->scrollToItem(starting.first(), QAbstractItemView::PositionAtTop);
    }
}

}  // namespace varno
