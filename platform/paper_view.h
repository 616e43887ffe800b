// A sheet of printed paper, to be looked at, copied and printed.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "paper/paper.h"
#include "platform/controls.h"
#include "platform/error.h"

namespace varno {

class PaperView : public Control {
  public:
    // Replaces the paper and keeps the scroll place as far as the new one has it.
    virtual void ShowPaper(const Paper& paper) = 0;
    virtual void ScrollToTop() = 0;
    // Marks a place; one that is not the former one is scrolled into sight.
    virtual void SetCaret(std::optional<PaperPlace> place) = 0;
    virtual void ZoomBy(int steps) = 0;                           // 0: back to the first size
    virtual void Copy() = 0;                                      // as text, to the clipboard
    virtual std::string Pdf(const std::string& title) const = 0;  // the bytes of a document
    // Asks for a printer and prints.
    [[nodiscard]] virtual Error Print(const std::string& title) = 0;

    std::function<void(PaperPlace)> OnClick;
};

}  // namespace varno
