#include "platform/paper_items.h"

#include "platform/paper_view.h"

namespace varno {

void ConnectPaperItems(Window& window) {
    auto& paper = window.Get<PaperView>("Paper");
    window.Get<MenuItem>("CopyText").OnClick = [&paper] { paper.Copy(); };
    window.Get<MenuItem>("ZoomIn").OnClick = [&paper] { paper.ZoomBy(1); };
    window.Get<MenuItem>("ZoomOut").OnClick = [&paper] { paper.ZoomBy(-1); };
    window.Get<MenuItem>("ActualSize").OnClick = [&paper] { paper.ZoomBy(0); };
}

}  // namespace varno
