// The controls of a window, as the program sees them. An event is a plain callback, empty until
// its consumer sets it; setting a property from the program raises no event unless said here.
// Texts are UTF-8, except marked text.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "platform/design.h"

namespace varno {

// Key codes as the program's rules name them; letters and main-keyboard digits are their capital
// letter's or digit's ASCII code.
enum KeyCode : int {
    KeyNone = 0,
    KeyBackspace = 8,
    KeyTab = 9,
    KeyEnter = 13,
    KeyEscape = 27,
    KeySpace = 32,
    KeyPageUp = 33,
    KeyPageDown = 34,
    KeyEnd = 35,
    KeyHome = 36,
    KeyLeft = 37,
    KeyUp = 38,
    KeyRight = 39,
    KeyDown = 40,
    KeyInsert = 45,
    KeyDelete = 46,
    KeyPad0 = 96,
    KeyPad9 = 105,
    KeyOther = 255,  // any key without a code of its own here
};

// Shift states add up.
enum ShiftState : int { ShiftNone = 0, ShiftShift = 1, ShiftCtrl = 2, ShiftAlt = 4 };

// Anything in a window that has a name.
class Component {
  public:
    Component() = default;
    Component(const Component&) = delete;
    Component& operator=(const Component&) = delete;
    virtual ~Component() = default;
};

// What can be offered to the operator or withheld: controls and menu items.
class Command : public Component {
  public:
    virtual bool Enabled() const = 0;
    virtual void SetEnabled(bool enabled) = 0;
    virtual bool Visible() const = 0;
    virtual void SetVisible(bool visible) = 0;
};

class Control : public Command {
  public:
    virtual Place GetPlace() const = 0;
    virtual void SetPlace(const Place& place) = 0;
    virtual void SetFocus() = 0;
    virtual void SetToolTip(const std::string& text) = 0;

    std::function<void()> OnGotFocus;
};

class Label : public Control {
  public:
    virtual std::string Caption() const = 0;
    virtual void SetCaption(const std::string& caption) = 0;
    virtual void Repaint() = 0;  // at once, without waiting for the event loop

    std::function<void()> OnChange;  // the caption was set
};

class Button : public Control {
  public:
    std::function<void()> OnClick;
};

class ToggleButton : public Control {
  public:
    virtual bool Value() const = 0;  // pressed
    virtual void SetValue(bool pressed) = 0;

    std::function<void()> OnMouseUp;  // any mouse button released over it, after it toggled
    std::function<void()> OnClick;    // toggled by keyboard or assistive technology
};

class CheckBox : public Control {
  public:
    virtual bool Value() const = 0;
    virtual void SetValue(bool ticked) = 0;

    std::function<void()> OnClick;  // toggled by the user
};

// One line of text.
class TextBox : public Control {
  public:
    virtual std::string Text() const = 0;
    virtual void SetText(const std::string& text) = 0;  // raises OnChange if it differs
    virtual void SetSelStart(int position) = 0;

    std::function<void()> OnChange;
    // Asked for each character typed or pasted; false drops it.
    std::function<bool(char32_t)> OnKeyPress;
};

// Many lines of plain text, one character a byte of Windows-1252.
class TextArea : public Control {
  public:
    virtual void Clear() = 0;
    // Adds to the end, puts the caret there, and drops the oldest text beyond about 1 MB.
    virtual void Append(std::string_view bytes) = 0;

    // A key that produces a character code, 1 to 255; the text area applies it as well.
    std::function<void(unsigned char)> OnKeyPress;
};

class ListBox : public Control {
  public:
    virtual int ListCount() const = 0;
    virtual std::string List(int index) const = 0;
    virtual void AddItem(const std::string& text) = 0;                // sorted, if the list is
    virtual void InsertItem(int index, const std::string& text) = 0;  // just there
    virtual void SetItem(int index, const std::string& text) = 0;     // keeps its place
    virtual void RemoveItem(int index) = 0;  // of the selected row: none is selected then
    virtual void Clear() = 0;
    virtual int ListIndex() const = 0;  // the selected row, -1 for none

    std::function<void()> OnClick;  // a row was selected, with mouse or keyboard
    std::function<void()> OnDblClick;
    std::function<void(char32_t)> OnKeyPress;  // the list receives the key as well
    std::function<void(int keyCode)> OnKeyUp;
};

// An edit field over a list that is always open. Getting the focus from the program selects the
// text, so that typing replaces it.
class SimpleCombo : public Control {
  public:
    virtual std::string Text() const = 0;
    virtual void SetText(const std::string& text) = 0;  // raises OnChange if it differs
    // In alphabetical order, if the list is sorted; equal entries stay in the order added.
    virtual void AddItems(std::span<const std::string> items) = 0;
    virtual int ListCount() const = 0;
    virtual std::string List(int index) const = 0;
    virtual int TopIndex() const = 0;         // the uppermost entry in sight
    virtual void SetTopIndex(int index) = 0;  // raises OnScroll if it differs

    std::function<void()> OnChange;
    std::function<void()> OnClick;  // an entry was clicked or chosen by key; Text() is the entry
    std::function<void()> OnDblClick;
    std::function<void()> OnScroll;
};

// A list that opens below its chosen entry. Unless it is empty, one is always chosen.
class DropDownList : public Control {
  public:
    virtual void AddItem(const std::string& text) = 0;
    virtual void Clear() = 0;
    virtual int ListIndex() const = 0;  // -1 if it is empty
    virtual void SetListIndex(int index) = 0;

    std::function<void()> OnClick;  // the user chose an entry
};

// Rows in columns, of which one can be selected. The texts are the program's: the table asks for
// those that it shows.
class Table : public Control {
  public:
    // The rows and their texts are others from now on. `selected` is selected and brought into
    // sight; -1: none, and the first row is in sight. Raises no event.
    virtual void ShowRows(int count, int selected) = 0;
    virtual void Repaint() = 0;           // some texts have changed
    virtual int SelectedRow() const = 0;  // -1 for none

    std::function<std::string(int row, int column)> OnText;
    std::function<void()> OnClick;  // a row was selected, with mouse or keyboard
};

class Timer : public Component {
  public:
    virtual bool Enabled() const = 0;
    virtual void SetEnabled(bool enabled) = 0;
    virtual void SetInterval(int milliseconds) = 0;

    std::function<void()> OnTimer;
};

class MenuItem : public Command {
  public:
    virtual bool Checked() const = 0;  // of a checkable one, which its choice turns round
    virtual void SetChecked(bool checked) = 0;

    std::function<void()> OnClick;  // chosen; of a menu: about to open
};

}  // namespace varno
