#include "editor/picker.h"

#include <utility>

namespace varno {

PickerForm::PickerForm(Platform& platform, const WindowDesign& design)
    : window_(platform.CreateWindow(design)) {
    window_->OnActivate = [this] { Form_Activate(); };
    window_->OnClose = [this] { closed_ = true; };
}

std::u16string PickerForm::Show() {
    pickResult_.clear();
    window_->ShowModal();
    return pickResult_;
}

void PickerForm::Leave(const std::u16string& pickResult) {
    pickResult_ = pickResult;
    window_->Hide();
}

std::u16string Picker::Pick() {
    if (!form_) form_ = make_();
    std::u16string pickResult = form_->Show();
    if (form_->Closed()) form_.reset();
    return pickResult;
}

}  // namespace varno
