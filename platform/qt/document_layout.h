// A rich-text document as a Qt document.
#pragma once

#include <QTextDocument>

#include "platform/rtf/rtf_document.h"

namespace varno {

// Replaces the content of `target`.
void LayOutDocument(const RtfDocument& source, QTextDocument& target);

}  // namespace varno
