// The picker of control codes and its twin for print codes: a catalogue shown by code and by
// comment, the boxes kept in step while the operator types or clicks.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "editor/picker.h"

namespace varno {

// What the twins look like.
const WindowDesign& ControlCodesList();
const WindowDesign& PrintCodesList();

class CodePicker final : public PickerForm {
  public:
    // Reads the catalogue; says why if it cannot be read, and stays empty then.
    CodePicker(Platform& platform, const WindowDesign& design, const std::string& cataloguePath);

  private:
    // The accepted lines of the catalogue in file order: whole, and split as the boxes show them.
    struct Rows {
        std::vector<std::u16string> whole;
        std::vector<std::string> codes;
        std::vector<std::string> comments;
    };

    void LoadCatalogue(Dialogs& dialogs, const std::string& path);
    void ConnectEvents();
    void KeepRowsSideBySide();
    void Form_Activate() override;
    void CodeComboBox_Change();
    void MatchCode();
    void MatchComment(const SimpleCombo& commentBox);
    void SortAlphabetically_Click();
    void OkButton_Click();

    SimpleCombo& codeComboBox_;
    SimpleCombo& unsortedCommentComboBox_;
    SimpleCombo& sortedCommentComboBox_;
    CheckBox& sortAlphabetically_;
    Button& okButton_;
    Rows rows_;
    std::size_t selectedRow_ = 0;  // counts while OkButton is enabled
};

}  // namespace varno
