// What assistive technology, which has no Menu key, sees of context menus.
#pragma once

#include <QMenu>
#include <functional>

namespace varno {

// The control offers the action that shows its menu. While a menu that belongs to the control is
// open, the action closes it, and it is a child of the control. Once for each control.
void MakeContextMenuAccessible(QWidget* control, std::function<void()> open);

// For a menu that belongs to a control and has not been open yet: it says so, and goes when an item
// was chosen.
void MakeMenuAccessible(QMenu* menu);

}  // namespace varno
