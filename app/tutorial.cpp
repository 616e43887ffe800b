#include "app/tutorial.h"

#include <array>

#include "platform/rich_text.h"
#include "platform/window_layout.h"

namespace varno {
namespace {

constexpr std::array Controls{
    ControlDesign{.name = "RichTextBox1",
                  .kind = ControlKind::DocumentView,
                  .place = {120, 120, 7695, 4515},
                  .accessibleName = "Tutorial document"},
    ControlDesign{.name = "ExitButton",
                  .kind = ControlKind::Button,
                  .caption = "E&xit",
                  .place = {6960, 4740, 855, 375},
                  .isCancel = true},
};

constexpr WindowDesign Design{.name = "Tutorial",
                              .caption = "Tutorial",
                              .clientWidth = 7950,
                              .clientHeight = 5220,
                              .minimizeButton = false,
                              .controls = Controls};

constexpr std::array Layout{
    LayoutRow{"RichTextBox1", Measure::Width, -375},
    LayoutRow{"RichTextBox1", Measure::Height, -1155},
    LayoutRow{"ExitButton", Measure::Left, -1110},
    LayoutRow{"ExitButton", Measure::Top, -870},
};

// Room for the button and a few lines of the document; outer measures.
constexpr int MinimumWidth = 3000;
constexpr int MinimumHeight = 2400;

}  // namespace

const WindowDesign& TutorialDesign() {
    return Design;
}

void Tutorial::ShowTutorial_Click() {
    if (window_ == nullptr && !Form_Load()) {
        window_.reset();
        return;
    }
    closed_ = false;
    window_->ShowModal();
    if (closed_) {
        window_.reset();
    }
}

bool Tutorial::Form_Load() {
    window_ = platform_.CreateWindow(Design);
    window_->SetMinimumSize(MinimumWidth, MinimumHeight);
    window_->OnResize = [this] { Form_Resize(); };
    window_->OnClose = [this] { closed_ = true; };
    window_->Get<Button>("ExitButton").OnClick = [this] { window_->Hide(); };
    const Error error = window_->Get<DocumentView>("RichTextBox1")
                            .LoadFile(platform_.App().folder + "/" + TutorialName);
    if (error) {
        platform_.DialogBoxes().ShowMessage(*error, ApplicationTitle, Buttons::Ok, Icon::Critical);
    }
    return !error;
}

void Tutorial::Form_Resize() {
    const Place outer = window_->CurrentOuterPlace();
    LayOutControls(*window_, Layout, outer.width, outer.height);
}

}  // namespace varno
