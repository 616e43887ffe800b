// Keys written as text: "ab<Enter>" presses A, B and Enter. In angle brackets stands the name of a
// key, with any of "C-", "S-", "A-" in front for Ctrl, Shift and Alt; "<Click>" clicks where the
// caret is.
#pragma once

#include <map>
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
};

inline KeyStroke LetterStroke(char16_t c) {
    if (c >= u'a' && c <= u'z') return {c - u'a' + 'A', ShiftNone, {c}};
    if (c >= u'A' && c <= u'Z') return {c, ShiftShift, {c}};
    const bool plain = (c >= u'0' && c <= u'9') || c == u' ';
    return {plain ? int{c} : KeyOther, ShiftNone, {c}};
}

inline KeyStroke NamedStroke(std::string name) {
    static const std::map<std::string_view, int> codes{
        {"Click", KeyNone},  {"BS", KeyBackspace},  {"Enter", KeyEnter}, {"Space", KeySpace},
        {"PgUp", KeyPageUp}, {"PgDn", KeyPageDown}, {"End", KeyEnd},     {"Home", KeyHome},
        {"Left", KeyLeft},   {"Up", KeyUp},         {"Right", KeyRight}, {"Down", KeyDown},
        {"Ins", KeyInsert},  {"Del", KeyDelete},    {"F5", KeyOther},
    };
    int shift = ShiftNone;
    for (; name.size() > 2 && name[1] == '-'; name.erase(0, 2)) {
        shift += name[0] == 'C' ? ShiftCtrl : name[0] == 'S' ? ShiftShift : ShiftAlt;
    }
    if (name.size() == 1) return {static_cast<unsigned char>(name[0]), shift, FromUtf8(name)};
    if (name.starts_with("Pad")) {
        return {KeyPad0 + name[3] - '0', shift, FromUtf8(name.substr(3))};
    }
    const int code = codes.at(name);
    return {code, shift, code == KeySpace ? u" " : u""};
}

inline std::vector<KeyStroke> ParseKeys(std::string_view keys) {
    std::vector<KeyStroke> strokes;
    while (!keys.empty()) {
        const auto run = keys.substr(0, keys.find('<'));
        for (const char16_t character : FromUtf8(run)) strokes.push_back(LetterStroke(character));
        keys.remove_prefix(run.size());
        if (keys.empty()) break;
        const auto close = keys.find('>');
        strokes.push_back(NamedStroke(std::string(keys.substr(1, close - 1))));
        keys.remove_prefix(close + 1);
    }
    return strokes;
}

}  // namespace varno
