// The picker of any character by its number, beside the table of the 32 control characters.
#pragma once

#include "editor/picker.h"

namespace varno {

const WindowDesign& AsciiCodesList();

class AsciiPicker final : public PickerForm {
  public:
    explicit AsciiPicker(Platform& platform);

  private:
    void Form_Activate() override;
    void List1_Click();
    void Text1_Change();
    void Command1_Click();

    ListBox& list1_;
    TextBox& text1_;
    Button& command1_;
};

}  // namespace varno
