#include "platform/dialog_form.h"

namespace varno {

DialogForm::DialogForm(Platform& platform, const WindowDesign& design)
    : window_(platform.CreateWindow(design)) {
    window_->OnActivate = [this] { Form_Activate(); };
    window_->OnResize = [this] { Form_Resize(); };
    window_->OnClose = [this] {
        Unload();
        Form_Unload();
    };
}

}  // namespace varno
