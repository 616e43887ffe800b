// Reads marked text back out of the flat XML document that LibreOffice writes.
#pragma once

#include <string_view>

#include "codec/marked_text.h"

namespace varno {

// Paragraphs and line breaks end with CR LF, in plain black; the end of the last one is left out.
MarkedText ReadFlatOdt(std::string_view xml);

}  // namespace varno
