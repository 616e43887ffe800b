#include "platform/qt/keys.h"

#include <array>

namespace varno {
namespace {

struct NamedKey {
    int qtKey;
    int code;
};

constexpr std::array NamedKeys{
    NamedKey{Qt::Key_Backspace, KeyBackspace},
    NamedKey{Qt::Key_Tab, KeyTab},
    NamedKey{Qt::Key_Return, KeyEnter},
    NamedKey{Qt::Key_Enter, KeyEnter},
    NamedKey{Qt::Key_Escape, KeyEscape},
    NamedKey{Qt::Key_Space, KeySpace},
    NamedKey{Qt::Key_PageUp, KeyPageUp},
    NamedKey{Qt::Key_PageDown, KeyPageDown},
    NamedKey{Qt::Key_End, KeyEnd},
    NamedKey{Qt::Key_Home, KeyHome},
    NamedKey{Qt::Key_Left, KeyLeft},
    NamedKey{Qt::Key_Up, KeyUp},
    NamedKey{Qt::Key_Right, KeyRight},
    NamedKey{Qt::Key_Down, KeyDown},
    NamedKey{Qt::Key_Insert, KeyInsert},
    NamedKey{Qt::Key_Delete, KeyDelete},
};

bool TypesDigit(const QKeyEvent& event) {
    const QString text = event.text();
    return text.size() == 1 && text.at(0) >= u'0' && text.at(0) <= u'9';
}

}  // namespace

int KeyCodeOf(const QKeyEvent& event) {
    const int key = event.key();
    if (key >= Qt::Key_0 && key <= Qt::Key_9) {
        const bool pad = event.modifiers().testFlag(Qt::KeypadModifier);
        return (pad ? static_cast<int>(KeyPad0) : static_cast<int>('0')) + key - Qt::Key_0;
    }
    if (key >= Qt::Key_A && key <= Qt::Key_Z) {
        return key;
    }
    for (const NamedKey& named : NamedKeys) {
        if (named.qtKey == key) {
            return named.code;
        }
    }
    return KeyOther;
}

int ShiftStateOf(const QKeyEvent& event) {
    const Qt::KeyboardModifiers modifiers = event.modifiers();
    int state = ShiftNone;
    if (modifiers.testFlag(Qt::ShiftModifier) && !TypesDigit(event)) {
        state += ShiftShift;
    }
    if (modifiers.testFlag(Qt::ControlModifier)) {
        state += ShiftCtrl;
    }
    if (modifiers.testFlag(Qt::AltModifier)) {
        state += ShiftAlt;
    }
    return state;
}

bool IsModifierAlone(const QKeyEvent& event) {
    const int key = event.key();
    return (key >= Qt::Key_Shift && key <= Qt::Key_ScrollLock) || key == Qt::Key_AltGr;
}

bool IsCommand(const QKeyEvent& event) {
    const Qt::KeyboardModifiers modifiers = event.modifiers();
    const bool altGr = modifiers.testFlag(Qt::ControlModifier);
    return modifiers.testFlag(Qt::MetaModifier) || (modifiers.testFlag(Qt::AltModifier) && !altGr);
}

bool IsTyping(const QKeyEvent& event) {
    const Qt::KeyboardModifiers modifiers = event.modifiers();
    const bool ctrl = modifiers.testFlag(Qt::ControlModifier);
    const bool alt = modifiers.testFlag(Qt::AltModifier);
    const QString text = event.text();
    return ctrl == alt && !text.isEmpty() && text.at(0).isPrint();
}

}  // namespace varno
