// A ticket on paper, and which place in the editor each place on the paper stands for.
#pragma once

#include <cstddef>
#include <vector>

#include "codec/marked_text.h"
#include "paper/paper.h"

namespace varno {

struct PreviewedTicket {
    Paper paper;
    // Where each word stands in the marked text, and where the text ends.
    std::vector<std::size_t> positions;
};

PreviewedTicket PreviewOf(const MarkedText& ticket, const Effects& effects);

// Where on the paper the next thing is printed that stands behind the caret.
PaperPlace PlaceOfCaret(const PreviewedTicket& ticket, std::size_t caret);

// The caret in front of what printed at this place.
std::size_t CaretAt(const PreviewedTicket& ticket, PaperPlace place);

}  // namespace varno
