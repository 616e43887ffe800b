#include "platform/qt/context_items.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QTextEdit>

#include "platform/qt/context_menu_accessible.h"
#include "platform/qt/measures.h"
#include "platform/qt/simple_controls.h"

namespace varno {
namespace {

// The keys of a sign are as good with Shift as without: which one types it depends on the layout.
QKeySequence KeysOf(const QKeyEvent& event) {
    Qt::KeyboardModifiers held = event.modifiers() & ~Qt::KeypadModifier;
    const bool isSign = event.key() < Qt::Key_A || event.key() > Qt::Key_Z;
    if (isSign && event.key() < Qt::Key_Escape) {
        held &= ~Qt::ShiftModifier;
    }
    return QKeyCombination(held, static_cast<Qt::Key>(event.key()));
}

// As the desktop does for the Menu key.
void SendContextMenu(QWidget* focus) {
    const QPoint place = focus->inputMethodQuery(Qt::ImCursorRectangle).toRect().center();
    QContextMenuEvent event(QContextMenuEvent::Keyboard, place, focus->mapToGlobal(place));
    QApplication::sendEvent(focus, &event);
}

// To assistive technology an item belongs to the first menu that shows it.
void AddCopy(const QAction& item, QMenu& menu) {
    QAction* copy = menu.addAction(item.text(), &item, &QAction::trigger);
    copy->setShortcut(item.shortcut());
    copy->setCheckable(item.isCheckable());
    copy->setChecked(item.isChecked());
    copy->setEnabled(item.isEnabled());
}

}  // namespace

ContextItems::ContextItems(std::span<const ContextItemDesign> designs, QWidget& window,
                           Components& components)
    : window_(window) {
    for (const ContextItemDesign& design : designs) {
        // Nothing but menus shows the item, so that its key is none of the shortcuts, which come
        // before the controls see a key.
        auto* item = new QAction(ToQt(design.caption), &window);
        item->setObjectName(ToQt(design.name));
        item->setShortcut(QKeySequence(ToQt(design.key)));
        item->setCheckable(design.checkable);
        items_.append(item);
        auto component = std::make_unique<QtMenuItem>(item);
        QObject::connect(item, &QAction::triggered, &window, [component = component.get()] {
            if (component->OnClick) {
                component->OnClick();
            }
        });
        components.emplace(design.name, std::move(component));
        for (const std::string_view control : design.controls) {
            AddTo(window.findChild<QWidget*>(ToQt(control)), item);
        }
    }
}

void ContextItems::AddTo(QWidget* control, QAction* item) {
    menus_[control].append(item);
    if (control->contextMenuPolicy() == Qt::CustomContextMenu) {
        return;
    }
    control->setContextMenuPolicy(Qt::CustomContextMenu);
    QObject::connect(control, &QWidget::customContextMenuRequested, control,
                     [this, control](const QPoint& place) { OpenMenu(control, place); });
    MakeContextMenuAccessible(control, [control] {
        control->window()->activateWindow();
        control->setFocus();
        SendContextMenu(control);
    });
}

// Behind what the control has in its own menu. The menu goes when it is closed.
void ContextItems::OpenMenu(QWidget* control, const QPoint& place) const {
    auto* editor = qobject_cast<QTextEdit*>(control);
    QMenu* menu = editor != nullptr ? editor->createStandardContextMenu(place) : new QMenu(control);
    menu->setObjectName(control->objectName() + QStringLiteral(".ContextMenu"));
    menu->setAttribute(Qt::WA_DeleteOnClose);
    if (!menu->isEmpty()) {
        menu->addSeparator();
    }
    for (const QAction* item : menus_.at(control)) {
        AddCopy(*item, *menu);
    }
    MakeMenuAccessible(menu);
    auto* area = qobject_cast<QAbstractScrollArea*>(control);
    menu->popup((area != nullptr ? area->viewport() : control)->mapToGlobal(place));
}

bool ContextItems::Press(const QKeyEvent& event) const {
    const QKeySequence pressed = KeysOf(event);
    for (QAction* item : items_) {
        if (item->shortcut() == pressed && item->isEnabled()) {
            item->trigger();
            return true;
        }
    }
    QWidget* focus = window_.focusWidget();
    if (focus == nullptr || pressed != QKeySequence(Qt::SHIFT | Qt::Key_F10)) {
        return false;
    }
    SendContextMenu(focus);
    return true;
}

}  // namespace varno
