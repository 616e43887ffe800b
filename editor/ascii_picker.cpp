#include "editor/ascii_picker.h"

#include <algorithm>
#include <array>

#include "codec/ascii_table.h"
#include "codec/utf8.h"

namespace varno {
namespace {

using Kind = ControlKind;

constexpr std::array Controls{
    ControlDesign{.name = "Label1",
                  .kind = Kind::Label,
                  .caption = "   ASCII     Hex           Binary           Ctrl    Name",
                  .place = {120, 120, 3615, 255}},
    ControlDesign{.name = "List1",
                  .kind = Kind::ListBox,
                  .place = {120, 420, 3615, 3375},
                  .accessibleName = "ASCII codes",
                  .font = FontFace::FixedWidth,
                  .colour = CommentColour},
    ControlDesign{.name = "Command2",
                  .kind = Kind::Button,
                  .caption = "&Cancel",
                  .place = {120, 3900, 735, 495},
                  .isCancel = true},
    ControlDesign{.name = "Text1",
                  .kind = Kind::TextBox,
                  .place = {960, 4020, 435, 315},
                  .accessibleName = "Number",
                  .font = FontFace::FixedWidth,
                  .colour = AsciiCodeColour},
    ControlDesign{.name = "Command1",
                  .kind = Kind::Button,
                  .caption = "&Insert ASCII Code in Ticket",
                  .place = {1560, 3900, 2175, 495},
                  .enabled = false,
                  .isDefault = true},
};

constexpr WindowDesign Design{.name = "AsciiCodesList",
                              .caption = "ASCII Codes",
                              .clientWidth = 3885,
                              .clientHeight = 4500,
                              .sizable = false,
                              .minimizeButton = false,
                              .maximizeButton = false,
                              .controls = Controls};

constexpr std::size_t MaxDigits = 3;  // 999 is the largest number
constexpr char32_t Backspace = 8;

}  // namespace

const WindowDesign& AsciiCodesList() {
    return Design;
}

AsciiPicker::AsciiPicker(Platform& platform)
    : PickerForm(platform, Design),
      list1_(Get<ListBox>("List1")),
      text1_(Get<TextBox>("Text1")),
      command1_(Get<Button>("Command1")) {
    for (const std::string& row : AsciiTable()) {
        list1_.AddItem(row);
    }
    list1_.OnClick = [this] { List1_Click(); };
    list1_.OnDblClick = [this] { Command1_Click(); };
    text1_.OnKeyPress = [](char32_t key) { return (key >= '0' && key <= '9') || key == Backspace; };
    text1_.OnChange = [this] { Text1_Change(); };
    command1_.OnClick = [this] { Command1_Click(); };
    Get<Button>("Command2").OnClick = [this] { Leave({}); };
}

void AsciiPicker::Form_Activate() {
    text1_.SetText("");
    text1_.SetFocus();
}

void AsciiPicker::List1_Click() {
    std::string code = list1_.List(list1_.ListIndex()).substr(0, MaxDigits);
    std::erase(code, ' ');
    text1_.SetText(code);
}

// A fourth digit makes the number too large, or has only zeros in front of it, which a code mark
// cannot carry either.
void AsciiPicker::Text1_Change() {
    const std::string text = text1_.Text();
    if (text.size() > MaxDigits) {
        text1_.SetText(text.substr(0, MaxDigits));
        text1_.SetSelStart(static_cast<int>(MaxDigits));
    }
    command1_.SetEnabled(!text.empty());
}

void AsciiPicker::Command1_Click() {
    if (command1_.Enabled()) {
        Leave(FromUtf8(text1_.Text()));
    }
}

}  // namespace varno
