// Qt's key events in the program's key codes.
#pragma once

#include <QKeyEvent>

#include "platform/controls.h"

namespace varno {

// The key by what it types: a key that types another character with Shift is not the digit that is
// printed on it, and where Shift types the digit, Shift does not count.
int KeyCodeOf(const QKeyEvent& event);
int ShiftStateOf(const QKeyEvent& event);

// Shift, Ctrl and the like, pressed without another key. They mean nothing by themselves.
bool IsModifierAlone(const QKeyEvent& event);

// With Alt or Super held a key is a command to the window or the desktop, whatever its text. Ctrl
// and Alt together are AltGr, which types.
bool IsCommand(const QKeyEvent& event);

// Whether the key would type its text into an editor.
bool IsTyping(const QKeyEvent& event);

}  // namespace varno
