// The commands of a window that are in context menus: their items and their keys.
#pragma once

#include <QKeyEvent>
#include <QMenu>
#include <QWidget>
#include <map>
#include <memory>
#include <span>
#include <string>

#include "platform/controls.h"
#include "platform/design.h"

namespace varno {

class ContextItems {
  public:
    using Components = std::map<std::string, std::unique_ptr<Component>, std::less<>>;

    // Adds a MenuItem for each row to the components of the window.
    ContextItems(std::span<const ContextItemDesign> designs, QWidget& window,
                 Components& components);

    // Carries out the item of this key, or opens the context menu of the control that has the
    // focus; false if the key does neither.
    bool Press(const QKeyEvent& event) const;

  private:
    void AddTo(QWidget* control, QAction* item);
    void OpenMenu(QWidget* control, const QPoint& place) const;

    QWidget& window_;
    QList<QAction*> items_;
    std::map<QWidget*, QList<QAction*>> menus_;  // of each control
};

}  // namespace varno
