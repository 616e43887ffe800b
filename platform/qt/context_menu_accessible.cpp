#include "platform/qt/context_menu_accessible.h"

#include <utility>

#include "platform/qt/accessible_front.h"

namespace varno {
namespace {

class ControlWithMenu final : public AccessibleFront, public QAccessibleActionInterface {
  public:
    ControlWithMenu(QWidget* control, std::function<void()> open)
        : AccessibleFront(control), control_(control), open_(std::move(open)) {}

    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                                    : AccessibleFront::interface_cast(type);
    }

    // The menu is the last child.
    int childCount() const override {
        return AccessibleFront::childCount() + (OpenMenu() != nullptr ? 1 : 0);
    }
    QAccessibleInterface* child(int index) const override {
        return index == AccessibleFront::childCount()
                   ? QAccessible::queryAccessibleInterface(OpenMenu())
                   : AccessibleFront::child(index);
    }
    int indexOfChild(const QAccessibleInterface* child) const override {
        QMenu* menu = OpenMenu();
        return menu != nullptr && child->object() == menu ? AccessibleFront::childCount()
                                                          : AccessibleFront::indexOfChild(child);
    }

    // QAccessibleActionInterface
    QStringList actionNames() const override {
        return control_->isEnabled() ? QStringList{setFocusAction(), showMenuAction()}
                                     : QStringList();
    }
    void doAction(const QString& name) override {
        if (!actionNames().contains(name)) {
            return;
        }
        QMenu* menu = OpenMenu();
        if (name == setFocusAction()) {
            control_->setFocus();
        } else if (menu != nullptr) {
            menu->close();
        } else {
            open_();
        }
    }
    QStringList keyBindingsForAction(const QString& /*name*/) const override { return {}; }

  private:
    QMenu* OpenMenu() const {
        for (auto* menu : control_->findChildren<QMenu*>(Qt::FindDirectChildrenOnly)) {
            if (menu->isVisible()) {
                return menu;
            }
        }
        return nullptr;
    }

    QWidget* control_;
    std::function<void()> open_;
};

class MenuOfControl final : public AccessibleFront {
  public:
    using AccessibleFront::AccessibleFront;
    QAccessibleInterface* parent() const override {
        return QAccessible::queryAccessibleInterface(object()->parent());
    }
};

}  // namespace

void MakeContextMenuAccessible(QWidget* control, std::function<void()> open) {
    QAccessible::registerAccessibleInterface(new ControlWithMenu(control, std::move(open)));
}

// An item that is pressed from the bus does not close its menu.
void MakeMenuAccessible(QMenu* menu) {
    QObject::connect(menu, &QMenu::triggered, menu, &QMenu::close);
    QAccessible::registerAccessibleInterface(new MenuOfControl(menu));
}

}  // namespace varno
