// What each control word of rich text does.
#pragma once

#include <string_view>

namespace varno {

class RtfInterpreter;

struct RtfControlWord {
    void (*apply)(RtfInterpreter& interpreter, int parameter);
    int defaultParameter = 0;  // where the document gives none
    bool isCharacter = false;  // beyond ASCII: may stand in for a Unicode character in front of it
};

// Null for a word that means nothing here.
const RtfControlWord* FindRtfControlWord(std::string_view name);

}  // namespace varno
