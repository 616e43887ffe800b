#include "platform/qt/document_view.h"

#include "platform/files.h"
#include "platform/qt/document_layout.h"
#include "platform/qt/document_view_accessible.h"
#include "platform/qt/simple_controls.h"
#include "platform/rtf/rtf_reader.h"

namespace varno {

QtDocumentView::QtDocumentView(const ControlDesign& design, QWidget* parent)
    : QtControl(new QTextBrowser(parent)) {
    MakeDocumentViewAccessible(widget_);
    ApplyDesign(design, widget_);
    UseWhitePaper(widget_, Qt::black);
    widget_->setOpenLinks(false);  // shows the document, goes nowhere
    widget_->document()->setDocumentMargin(12);
}

Error QtDocumentView::LoadFile(const std::string& path) {
    std::string bytes;
    if (Error error = ReadFile(path, bytes)) {
        return error;
    }
    RtfDocument document;
    if (Error error = ReadRtf(bytes, document)) {
        return path + ": " + *error;
    }
    LayOutDocument(document, *widget_->document());
    widget_->moveCursor(QTextCursor::Start);
    return std::nullopt;
}

}  // namespace varno
