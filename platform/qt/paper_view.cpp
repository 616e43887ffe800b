#include "platform/qt/paper_view.h"

#include <QClipboard>
#include <QGuiApplication>

#include "platform/qt/paper_print.h"
#include "platform/qt/simple_controls.h"

namespace varno {

QtPaperView::QtPaperView(const ControlDesign& design, QWidget* parent)
    : QtControl(new PaperSheet(parent)) {
    ApplyDesign(design, widget_);
    widget_->OnClick = [this](PaperPlace place) {
        if (OnClick) {
            OnClick(place);
        }
    };
}

void QtPaperView::Copy() {
    QGuiApplication::clipboard()->setText(widget_->Text());
}

std::string QtPaperView::Pdf(const std::string& title) const {
    return PaperPdf(widget_->Shown(), title);
}

Error QtPaperView::Print(const std::string& title) {
    return PrintPaper(widget_->Shown(), title, widget_);
}

}  // namespace varno
