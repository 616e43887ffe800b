// Key strokes as real key events.
#pragma once

#include <QTest>
#include <QTextEdit>
#include <array>

#include "tests/fakes/key_strokes.h"

namespace varno {

inline Qt::Key QtKeyOf(const KeyStroke& stroke) {
    struct Pair {
        int code;
        Qt::Key key;
    };
    static constexpr std::array Keys{Pair{KeyBackspace, Qt::Key_Backspace},
                                     Pair{KeyEnter, Qt::Key_Return},
                                     Pair{KeyPageUp, Qt::Key_PageUp},
                                     Pair{KeyPageDown, Qt::Key_PageDown},
                                     Pair{KeyEnd, Qt::Key_End},
                                     Pair{KeyHome, Qt::Key_Home},
                                     Pair{KeyLeft, Qt::Key_Left},
                                     Pair{KeyUp, Qt::Key_Up},
                                     Pair{KeyRight, Qt::Key_Right},
                                     Pair{KeyDown, Qt::Key_Down},
                                     Pair{KeyInsert, Qt::Key_Insert},
                                     Pair{KeyDelete, Qt::Key_Delete}};
    for (const Pair& pair : Keys) {
        if (pair.code == stroke.code) {
            return pair.key;
        }
    }
    if (stroke.code >= KeyPad0 && stroke.code <= KeyPad9) {
        return static_cast<Qt::Key>(Qt::Key_0 + stroke.code - KeyPad0);
    }
    if (stroke.code == KeyOther) {
        return stroke.text.empty() ? Qt::Key_F5 : Qt::Key_unknown;
    }
    return static_cast<Qt::Key>(stroke.code);
}

inline void Press(QWidget* widget, const KeyStroke& stroke) {
    Qt::KeyboardModifiers modifiers;
    modifiers.setFlag(Qt::ShiftModifier, (stroke.shift & ShiftShift) != 0);
    modifiers.setFlag(Qt::ControlModifier, (stroke.shift & ShiftCtrl) != 0);
    modifiers.setFlag(Qt::AltModifier, (stroke.shift & ShiftAlt) != 0);
    modifiers.setFlag(Qt::KeypadModifier, stroke.code >= KeyPad0 && stroke.code <= KeyPad9);
    QString text = QString::fromStdU16String(stroke.text);
    if ((stroke.shift & ShiftCtrl) != 0 && stroke.code >= 'A' && stroke.code <= 'Z') {
        text = QChar(stroke.code - 'A' + 1);
    }
    QTest::sendKeyEvent(QTest::Click, widget, QtKeyOf(stroke), text, modifiers);
}

// Clicks where the caret is.
inline void ClickCaret(QTextEdit* edit) {
    QTest::mouseClick(edit->viewport(), Qt::LeftButton, {}, edit->cursorRect().center());
}

}  // namespace varno
