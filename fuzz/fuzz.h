// What the fuzz targets share. Each feeds anything to a reader, which must not crash, hang or grow,
// and checks what must hold of what it read.
#pragma once

#include <fuzzer/FuzzedDataProvider.h>

#include <cstdlib>

#include "codec/memory_editor.h"
#include "codec/utf8.h"

namespace varno {

// A fault ends the program, which keeps its input for the developer.
inline void Must(bool hold) {
    if (!hold) {
        std::abort();
    }
}

// Any text, in the colours of tickets and one other.
inline MarkedText AnyTicket(FuzzedDataProvider& in) {
    constexpr Colour Colours[] = {TextColour,      AsciiCodeColour, ControlCodeColour,
                                  PrintCodeColour, CommentColour,   0x123456};
    MarkedText text;
    for (int runs = in.ConsumeIntegralInRange(0, 9); runs > 0; --runs) {
        const Colour colour = in.PickValueInArray(Colours);
        text.Append(FromUtf8(in.ConsumeRandomLengthString()), {colour, in.ConsumeBool()});
    }
    return text;
}

}  // namespace varno
