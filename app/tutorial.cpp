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

TutorialForm::TutorialForm(Platform& platform)
    : DialogForm(platform, Design),
      dialogs_(platform.DialogBoxes()),
      unreadable_(
          Get<DocumentView>("RichTextBox1").LoadFile(platform.App().folder + "/" + TutorialName)) {
    TheWindow().SetMinimumSize(MinimumWidth, MinimumHeight);
    Get<Button>("ExitButton").OnClick = [this] { Hide(); };
}

void TutorialForm::Show() {
    if (unreadable_) {
        Unload();
        dialogs_.ShowMessage(*unreadable_, ApplicationTitle, Buttons::Ok, Icon::Critical);
        return;
    }
    ShowModal();
}

void TutorialForm::Form_Resize() {
    const Place outer = TheWindow().CurrentOuterPlace();
    LayOutControls(TheWindow(), Layout, outer.width, outer.height);
}

void Tutorial::ShowTutorialPage_Click() {
    if (Error error = platform_.OpenDocument(platform_.App().folder + "/" + TutorialPageName)) {
        platform_.DialogBoxes().ShowMessage(*error, ApplicationTitle, Buttons::Ok, Icon::Critical);
    }
}

}  // namespace varno
