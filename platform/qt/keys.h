// Qt's key events in the program's key codes.
#pragma once

#include <QKeyEvent>

#include "platform/controls.h"

namespace varno {

// The key by what is printed on it, whatever the keyboard's language: a digit key counts as one
// with Shift held as well, and where Shift types the digit, Shift does not count.
int KeyCodeOf(const QKeyEvent& event);
int ShiftStateOf(const QKeyEvent& event);

// Whether the key would type its text into an editor.
bool IsTyping(const QKeyEvent& event);

}  // namespace varno
