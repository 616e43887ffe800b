// The view of printed paper.
#pragma once

#include <QScrollBar>

#include "platform/paper_view.h"
#include "platform/qt/control_base.h"
#include "platform/qt/paper_sheet.h"

namespace varno {

class QtPaperView final : public QtControl<PaperView, PaperSheet> {
  public:
    QtPaperView(const ControlDesign& design, QWidget* parent);
    void ShowPaper(const Paper& paper) override { widget_->ShowPaper(paper); }
    void ScrollToTop() override { widget_->verticalScrollBar()->setValue(0); }
    void SetCaret(std::optional<PaperPlace> place) override { widget_->SetCaret(place); }
    void ZoomBy(int steps) override { widget_->ZoomBy(steps); }
    void Copy() override;
    std::string Pdf(const std::string& title) const override;
    Error Print(const std::string& title) override;
};

}  // namespace varno
