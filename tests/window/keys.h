// Keys written as text: "ab<Enter>" presses A, B and Enter. In angle brackets stands the name of a
// key, with any of "C-", "S-", "A-" in front for Ctrl, Shift and Alt; "<Click>" clicks where the
// caret is.
#pragma once

#include <QTest>
#include <QTextEdit>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace varno {

struct KeyStroke {
    Qt::Key key{};  // none: a click
    Qt::KeyboardModifiers held{};
    QString text{};  // what the key types, if anything
};

// A letter and a digit have a key of their own; any other character comes from some key.
inline KeyStroke LetterStroke(QChar c) {
    const bool plain = c <= u'z' && (c.isLetterOrNumber() || c == u' ');
    return {plain ? static_cast<Qt::Key>(c.toUpper().unicode()) : Qt::Key_unknown,
            c.isUpper() && plain ? Qt::ShiftModifier : Qt::NoModifier, c};
}

inline KeyStroke NamedStroke(QString name) {
    static const std::map<QString, KeyStroke> strokes{
        {"Click", {}},
        {"BS", {Qt::Key_Backspace}},
        {"Enter", {Qt::Key_Return}},
        {"Space", {Qt::Key_Space, {}, " "}},
        {"PgUp", {Qt::Key_PageUp}},
        {"PgDn", {Qt::Key_PageDown}},
        {"End", {Qt::Key_End}},
        {"Home", {Qt::Key_Home}},
        {"Left", {Qt::Key_Left}},
        {"Up", {Qt::Key_Up}},
        {"Right", {Qt::Key_Right}},
        {"Down", {Qt::Key_Down}},
        {"Ins", {Qt::Key_Insert}},
        {"Del", {Qt::Key_Delete}},
        {"F5", {Qt::Key_F5}},
    };
    Qt::KeyboardModifiers held;
    for (; name.size() > 2 && name[1] == u'-'; name.remove(0, 2)) {
        held |= name[0] == u'C'   ? Qt::ControlModifier
                : name[0] == u'S' ? Qt::ShiftModifier
                                  : Qt::AltModifier;
    }
    const bool pad = name.startsWith(u"Pad");
    KeyStroke stroke = pad || name.size() == 1 ? LetterStroke(name.back()) : strokes.at(name);
    stroke.held = pad ? held | Qt::KeypadModifier : held;
    if (held.testFlag(Qt::ControlModifier) && stroke.key >= Qt::Key_A && stroke.key <= Qt::Key_Z) {
        stroke.text = QChar(stroke.key - Qt::Key_A + 1);
    }
    return stroke;
}

inline std::vector<KeyStroke> ParseKeys(std::string_view utf8) {
    std::vector<KeyStroke> strokes;
    const QString keys = QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
    for (qsizetype at = 0; at < keys.size(); ++at) {
        if (keys[at] != u'<') {
            strokes.push_back(LetterStroke(keys[at]));
            continue;
        }
        const qsizetype end = keys.indexOf(u'>', at);
        strokes.push_back(NamedStroke(keys.mid(at + 1, end - at - 1)));
        at = end;
    }
    return strokes;
}

// Clicks where the caret is.
inline void ClickCaret(QTextEdit* edit) {
    QTest::mouseClick(edit->viewport(), Qt::LeftButton, {}, edit->cursorRect().center());
}

inline void Press(QTextEdit* edit, const KeyStroke& stroke) {
    if (stroke.key == Qt::Key()) {
        ClickCaret(edit);
    } else {
        QTest::sendKeyEvent(QTest::Click, edit, stroke.key, stroke.text, stroke.held);
    }
}

}  // namespace varno
