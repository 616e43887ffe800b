#include "platform/qt/simple_combo.h"

#include <QCoreApplication>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QSignalBlocker>
#include <QStyledItemDelegate>
#include <QToolTip>
#include <algorithm>

#include "platform/qt/list_box.h"
#include "platform/qt/simple_controls.h"

namespace varno {
namespace {

// Cuts an entry that is wider than the list and shows it whole as a tool tip. So no list needs a
// scroll bar along its bottom, and lists of the same height always show as many rows.
class CutEntries final : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem& option,
                   const QModelIndex& /*index*/) const override {
        return {0, option.fontMetrics.height()};
    }
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override {
        const bool cut = QStyledItemDelegate::sizeHint(option, index).width() > option.rect.width();
        QToolTip::showText(event->globalPos(), cut ? index.data().toString() : QString(), view);
        return true;
    }
};

bool WalksThroughList(const QKeyEvent& event) {
    const int key = event.key();
    return key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp ||
           key == Qt::Key_PageDown;
}

}  // namespace

ComboPanel::ComboPanel(QtSimpleCombo* control, QWidget* parent)
    : QWidget(parent), field(new QLineEdit(this)), list(new RowList(this)), control_(control) {
    setFocusProxy(field);
    field->installEventFilter(this);
    list->setItemDelegate(new CutEntries(list));
    list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list->setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
    list->OnChosen = [this] { Choose(); };
    list->OnDblClick = [this] {
        if (control_->OnDblClick) {
            control_->OnDblClick();
        }
    };
    QObject::connect(list->verticalScrollBar(), &QScrollBar::valueChanged, this, [this] {
        if (control_->OnScroll) {
            control_->OnScroll();
        }
    });
}

// The text of a chosen entry is selected: what is typed next replaces it.
void ComboPanel::Choose() {
    {
        const QSignalBlocker quiet(field);
        field->setText(list->item(list->SelectedRow())->text());
    }
    field->selectAll();
    if (control_->OnClick) {
        control_->OnClick();
    }
}

void ComboPanel::resizeEvent(QResizeEvent* /*event*/) {
    const int fieldHeight = field->sizeHint().height();
    field->setGeometry(0, 0, width(), fieldHeight);
    list->setGeometry(WholeRows(*list, QRect(0, fieldHeight, width(), height() - fieldHeight)));
}

bool ComboPanel::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress && WalksThroughList(*static_cast<QKeyEvent*>(event))) {
        QCoreApplication::sendEvent(list, event);
        return true;
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

void QtSimpleCombo::SetText(const std::string& text) {
    if (Text() == text) {
        FollowText();
    } else {
        widget_->field->setText(ToQt(text));
    }
}

void QtSimpleCombo::SetFocus() {
    QtControl::SetFocus();
    widget_->field->selectAll();
}

// Of equal entries the one that was chosen stays so.
QListWidgetItem* QtSimpleCombo::EntryOfText() const {
    const QString text = widget_->field->text();
    QListWidgetItem* current = widget_->list->item(widget_->list->SelectedRow());
    if (current != nullptr && current->text() == text) {
        return current;
    }
    const auto exact = widget_->list->findItems(text, Qt::MatchExactly | Qt::MatchCaseSensitive);
    return exact.isEmpty() ? nullptr : exact.first();
}

void QtSimpleCombo::FollowText() {
    RowList* list = widget_->list;
    const QSignalBlocker quiet(list);
    if (QListWidgetItem* entry = EntryOfText()) {
        list->Select(list->row(entry));
        list->scrollToItem(entry);
        return;
    }
    list->clearSelection();
    const QString text = widget_->field->text();
    const auto starting = list->findItems(text, Qt::MatchStartsWith);
    QListWidgetItem* nearest = text.isEmpty() || starting.isEmpty() ? nullptr : starting.first();
    list->StandAt(nearest != nullptr ? list->row(nearest) : -1);
    if (nearest != nullptr) {
        list->scrollToItem(nearest, QAbstractItemView::PositionAtTop);
    }
}

}  // namespace varno
