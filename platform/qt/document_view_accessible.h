// What assistive technology sees of a formatted document: its text, and its headings as children
// whose descriptions say their levels.
#pragma once

#include <QTextBrowser>

namespace varno {

void MakeDocumentViewAccessible(QTextBrowser* view);

}  // namespace varno
