#include "platform/qt/control_factory.h"

#include "platform/qt/document_view.h"
#include "platform/qt/list_box.h"
#include "platform/qt/paper_view.h"
#include "platform/qt/rich_text_box.h"
#include "platform/qt/simple_combo.h"
#include "platform/qt/simple_controls.h"
#include "platform/qt/table.h"
#include "platform/qt/text_area.h"

namespace varno {
namespace {

template <class T>
NewControl Make(const ControlDesign& design, QWidget* parent) {
    auto control = std::make_unique<T>(design, parent);
    QWidget* widget = control->Get();
    return {std::move(control), widget};
}

}  // namespace

NewControl MakeControl(const ControlDesign& design, QWidget* parent) {
    switch (design.kind) {
        case ControlKind::StatusStrip:
        case ControlKind::Frame:
            return Make<QtFrame>(design, parent);
        case ControlKind::Label:
            return Make<QtLabel>(design, parent);
        case ControlKind::TextBox:
            return Make<QtTextBox>(design, parent);
        case ControlKind::TextArea:
            return Make<QtTextArea>(design, parent);
        case ControlKind::RichTextBox:
            return Make<QtRichTextBox>(design, parent);
        case ControlKind::DocumentView:
            return Make<QtDocumentView>(design, parent);
        case ControlKind::PaperView:
            return Make<QtPaperView>(design, parent);
        case ControlKind::Button:
            return Make<QtButton>(design, parent);
        case ControlKind::ToggleButton:
            return Make<QtToggleButton>(design, parent);
        case ControlKind::CheckBox:
            return Make<QtCheckBox>(design, parent);
        case ControlKind::ListBox:
            return Make<QtListBox>(design, parent);
        case ControlKind::SimpleCombo:
            return Make<QtSimpleCombo>(design, parent);
        case ControlKind::DropDownList:
            return Make<QtDropDownList>(design, parent);
        case ControlKind::Table:
            return Make<QtTable>(design, parent);
        case ControlKind::Timer:
            break;
    }
    return {std::make_unique<QtTimer>(design), nullptr};
}

}  // namespace varno
