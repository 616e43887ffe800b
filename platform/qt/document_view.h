// The viewer of a formatted document.
#pragma once

#include <QTextBrowser>

#include "platform/qt/control_base.h"
#include "platform/rich_text.h"

namespace varno {

class QtDocumentView final : public QtControl<DocumentView, QTextBrowser> {
  public:
    QtDocumentView(const ControlDesign& design, QWidget* parent);
    Error LoadFile(const std::string& path) override;
};

}  // namespace varno
