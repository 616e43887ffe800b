// Keys written as text: "ab<Enter>" presses A, B and Enter. In angle brackets stands the name of a
// key, with any of "C-", "S-", "A-" in front for Ctrl, Shift and Alt; "<Click>" clicks where the
// caret is.
#pragma once

#include <map>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "codec/utf8.h"
#include "platform/controls.h"

namespace varno {

struct KeyStroke {
    int code = KeyNone;  // KeyNone: a click
    int shift = ShiftNone;
    std::u16string text = {};  // what the key types, if anything
    std::string name = {};
};

inline KeyStroke LetterStroke(char16_t character) {
    KeyStroke stroke{.text = {character}, .name = ToUtf8({&character, 1})};
    if (character >= u'a' && character <= u'z') {
        stroke.code = character - u'a' + 'A';
    } else if (character >= u'A' && character <= u'Z') {
        stroke.code = character;
        stroke.shift = ShiftShift;
    } else if ((character >= u'0' && character <= u'9') || character == u' ') {
        stroke.code = character;
    } else {
        stroke.code = KeyOther;
    }
    return stroke;
}

inline KeyStroke NamedStroke(std::string name) {
    static const std::map<std::string_view, int> codes{
        {"Click", KeyNone},  {"BS", KeyBackspace},  {"Enter", KeyEnter}, {"Space", KeySpace},
        {"PgUp", KeyPageUp}, {"PgDn", KeyPageDown}, {"End", KeyEnd},     {"Home", KeyHome},
        {"Left", KeyLeft},   {"Up", KeyUp},         {"Right", KeyRight}, {"Down", KeyDown},
        {"Ins", KeyInsert},  {"Del", KeyDelete},    {"F5", KeyOther},
    };
    KeyStroke stroke{.name = name};
    for (; name.size() > 2 && name[1] == '-'; name.erase(0, 2)) {
        stroke.shift += name[0] == 'C' ? ShiftCtrl : name[0] == 'S' ? ShiftShift : ShiftAlt;
    }
    if (name.size() == 1) {
        stroke.code = static_cast<unsigned char>(name[0]);
        // What a German keyboard types with Shift and 7.
        stroke.text = name == "7" && stroke.shift == ShiftShift ? u"/" : FromUtf8(name);
    } else if (name.starts_with("Pad")) {
        stroke.code = KeyPad0 + name[3] - '0';
        stroke.text = FromUtf8(name.substr(3));
    } else {
        stroke.code = codes.at(name);
        stroke.text = stroke.code == KeySpace ? u" " : u"";
    }
    return stroke;
}

inline std::vector<KeyStroke> ParseKeys(std::string_view keys) {
    std::vector<KeyStroke> strokes;
    while (!keys.empty()) {
        if (keys.front() == '<') {
            const auto close = keys.find('>');
            strokes.push_back(NamedStroke(std::string(keys.substr(1, close - 1))));
            keys.remove_prefix(close + 1);
        } else {
            const auto run = keys.substr(0, keys.find('<'));
            for (const char16_t character : FromUtf8(run)) {
                strokes.push_back(LetterStroke(character));
            }
            keys.remove_prefix(run.size());
        }
    }
    return strokes;
}

}  // namespace varno
