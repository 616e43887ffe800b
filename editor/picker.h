// The dialogs that a code is chosen in.
#pragma once

#include <string>

#include "platform/dialog_form.h"

namespace varno {

class PickerForm : public DialogForm {
  public:
    using DialogForm::DialogForm;

    // Shows the dialog and returns its PickResult: the choice, or nothing when it was cancelled
    // or closed.
    std::u16string Pick() {
        pickResult_.clear();
        ShowModal();
        return pickResult_;
    }

  protected:
    void Leave(const std::u16string& pickResult) {
        pickResult_ = pickResult;
        Hide();
    }

  private:
    std::u16string pickResult_;
};

using Picker = KeptDialog<PickerForm>;

}  // namespace varno
