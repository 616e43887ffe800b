// Paper on pages.
#pragma once

#include <QPagedPaintDevice>
#include <string>

#include "paper/paper.h"
#include "platform/error.h"

namespace varno {

// Ten columns to the inch, fewer where the page is too narrow; a line below the last row says what
// the colours mean. False if the device cannot be drawn on.
bool DrawPages(const Paper& paper, QPagedPaintDevice& device);

// The bytes of a document whose page is as large as the paper.
std::string PaperPdf(const Paper& paper, const std::string& title);

// Asks for a printer and prints.
Error PrintPaper(const Paper& paper, const std::string& title, QWidget* owner);

}  // namespace varno
