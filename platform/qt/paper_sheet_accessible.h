// The paper as assistive technology reads it: its rows as lines of text, and the caret's place.
#pragma once

namespace varno {

class PaperSheet;

void MakePaperSheetAccessible(PaperSheet* sheet);

}  // namespace varno
