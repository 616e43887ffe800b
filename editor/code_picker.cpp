#include "editor/code_picker.h"

#include <algorithm>
#include <array>

#include "codec/catalogue.h"
#include "codec/utf8.h"
#include "codec/word.h"

namespace varno {
namespace {

using Kind = ControlKind;

constexpr Place CommentPlace{960, 180, 5475, 2520};

constexpr ControlDesign CommentBox(std::string_view name, bool sorted) {
    return {.name = name,
            .kind = Kind::SimpleCombo,
            .place = CommentPlace,
            .visible = !sorted,
            .accessibleName = "Comment",
            .font = FontFace::FixedWidth,
            .colour = CommentColour,
            .sorted = sorted,
            .listAccessibleName = "Comments"};
}

constexpr std::array<ControlDesign, 6> Controls(std::string_view okCaption, Colour codeColour) {
    return {{{.name = "CodeComboBox",
              .kind = Kind::SimpleCombo,
              .place = {120, 180, 795, 2520},
              .accessibleName = "Code",
              .font = FontFace::FixedWidth,
              .colour = codeColour,
              .sorted = true,
              .listAccessibleName = "Codes"},
             CommentBox("UnsortedCommentComboBox", false),
             CommentBox("SortedCommentComboBox", true),
             {.name = "CancelButton",
              .kind = Kind::Button,
              .caption = "&Cancel",
              .place = {120, 2760, 1095, 555},
              .isCancel = true},
             {.name = "SortAlphabetically",
              .kind = Kind::CheckBox,
              .caption = "sort comments alphabetically",
              .place = {1320, 2820, 1395, 495}},
             {.name = "OkButton",
              .kind = Kind::Button,
              .caption = okCaption,
              .place = {2760, 2760, 3735, 555},
              .enabled = false,
              .isDefault = true}}};
}

constexpr auto ControlCodesControls = Controls("&Insert Control Code in Ticket", ControlCodeColour);
constexpr auto PrintCodesControls = Controls("Insert Print Code in Ticket", PrintCodeColour);

constexpr WindowDesign ControlCodesDesign{.name = "ControlCodesList",
                                          .caption = "Varno Control Codes",
                                          .clientWidth = 6630,
                                          .clientHeight = 3420,
                                          .sizable = false,
                                          .minimizeButton = false,
                                          .maximizeButton = false,
                                          .controls = ControlCodesControls};
constexpr WindowDesign PrintCodesDesign{.name = "PrintCodesList",
                                        .caption = "Varno Print Codes",
                                        .clientWidth = 6600,
                                        .clientHeight = 3390,
                                        .sizable = false,
                                        .minimizeButton = false,
                                        .maximizeButton = false,
                                        .controls = PrintCodesControls};

// The row whose code or comment is exactly `text`; the first one counts.
std::optional<std::size_t> Match(const std::vector<std::string>& column, const std::string& text) {
    const auto found = std::find(column.begin(), column.end(), text);
    if (found == column.end()) {
        return std::nullopt;
    }
    return static_cast<std::size_t>(found - column.begin());
}

}  // namespace

const WindowDesign& ControlCodesList() {
    return ControlCodesDesign;
}
const WindowDesign& PrintCodesList() {
    return PrintCodesDesign;
}

CodePicker::CodePicker(Platform& platform, const WindowDesign& design,
                       const std::string& cataloguePath)
    : PickerForm(platform, design),
      codeComboBox_(Get<SimpleCombo>("CodeComboBox")),
      unsortedCommentComboBox_(Get<SimpleCombo>("UnsortedCommentComboBox")),
      sortedCommentComboBox_(Get<SimpleCombo>("SortedCommentComboBox")),
      sortAlphabetically_(Get<CheckBox>("SortAlphabetically")),
      okButton_(Get<Button>("OkButton")) {
    LoadCatalogue(platform.DialogBoxes(), cataloguePath);
    ConnectEvents();
    KeepRowsSideBySide();
}

void CodePicker::LoadCatalogue(Dialogs& dialogs, const std::string& path) {
    std::vector<CatalogueRow> rows;
    const std::string failure = varno::LoadCatalogue(path, rows);
    if (!failure.empty()) {
        dialogs.ShowMessage(failure, "", Buttons::Ok, Icon::Critical);
    }
    for (const CatalogueRow& row : rows) {
        rows_.whole.push_back(row.text);
        rows_.codes.push_back(ToUtf8(row.Code()));
        rows_.comments.push_back(ToUtf8(row.Comment()));
    }
    codeComboBox_.AddItems(rows_.codes);
    unsortedCommentComboBox_.AddItems(rows_.comments);
    sortedCommentComboBox_.AddItems(rows_.comments);
}

void CodePicker::ConnectEvents() {
    codeComboBox_.OnChange = [this] { CodeComboBox_Change(); };
    codeComboBox_.OnClick = [this] { MatchCode(); };
    codeComboBox_.OnDblClick = [this] { OkButton_Click(); };
    for (SimpleCombo* box : {&unsortedCommentComboBox_, &sortedCommentComboBox_}) {
        box->OnChange = [this, box] { MatchComment(*box); };
        box->OnClick = [this, box] { MatchComment(*box); };
        box->OnDblClick = [this] { OkButton_Click(); };
    }
    sortAlphabetically_.OnClick = [this] { SortAlphabetically_Click(); };
    okButton_.OnClick = [this] { OkButton_Click(); };
    Get<Button>("CancelButton").OnClick = [this] { Leave({}); };
}

// The two lists in file order scroll as one, if the codes stand in file order when they are sorted.
// Where they do not, each list only shows its entry of the row that is chosen.
void CodePicker::KeepRowsSideBySide() {
    for (int row = 0; row < codeComboBox_.ListCount(); ++row) {
        if (codeComboBox_.List(row) != rows_.codes[static_cast<std::size_t>(row)]) {
            return;
        }
    }
    codeComboBox_.OnScroll = [this] {
        unsortedCommentComboBox_.SetTopIndex(codeComboBox_.TopIndex());
    };
    unsortedCommentComboBox_.OnScroll = [this] {
        codeComboBox_.SetTopIndex(unsortedCommentComboBox_.TopIndex());
    };
}

void CodePicker::Form_Activate() {
    codeComboBox_.SetFocus();
}

void CodePicker::CodeComboBox_Change() {
    const std::u16string text = FromUtf8(codeComboBox_.Text());
    if (text.size() > CodeDigits) {
        codeComboBox_.SetText(ToUtf8(text.substr(0, CodeDigits)));
    }
    MatchCode();
}

// Setting a box raises its change, and so a match from there; a box that holds the text already
// raises none, so this comes to rest.
void CodePicker::MatchCode() {
    const auto row = Match(rows_.codes, codeComboBox_.Text());
    if (row) {
        sortedCommentComboBox_.SetText(rows_.comments[*row]);
        unsortedCommentComboBox_.SetText(rows_.comments[*row]);
        selectedRow_ = *row;
    }
    okButton_.SetEnabled(row.has_value());
}

void CodePicker::MatchComment(const SimpleCombo& commentBox) {
    const auto row = Match(rows_.comments, commentBox.Text());
    if (row) {
        codeComboBox_.SetText(rows_.codes[*row]);
        selectedRow_ = *row;
    }
    okButton_.SetEnabled(row.has_value());
}

void CodePicker::SortAlphabetically_Click() {
    sortedCommentComboBox_.SetVisible(sortAlphabetically_.Value());
    unsortedCommentComboBox_.SetVisible(!sortAlphabetically_.Value());
}

void CodePicker::OkButton_Click() {
    if (okButton_.Enabled()) {
        Leave(rows_.whole[selectedRow_]);
    }
}

}  // namespace varno
