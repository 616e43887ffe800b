// Tells assistive technology what Qt's bridge to it does not.
#pragma once

#include <QAccessible>

namespace varno {

// The text that a heading has for its level, 1 to 6.
inline constexpr QAccessible::Text HeadingLevel = QAccessible::UserText;

// To be called once, with the application and before there are windows. A push button that stays
// down then has the role of a toggle button, and a heading has its level as an attribute. Who asks
// for an action is answered before it is done. What is behind a box or dialog refuses to be
// changed.
void CompleteAccessibilityBridge();

}  // namespace varno
