#include "link/terminal_design.h"

namespace varno {

namespace {

constexpr Place TextPlace = {120, 60, 4515, 4875};
constexpr Place ClearPlace = {120, 5040, 855, 495};
constexpr Place ExitPlace = {3780, 5040, 855, 495};

constexpr ControlDesign Controls[] = {
    {.name = "Text1",
     .kind = ControlKind::TextArea,
     .place = TextPlace,
     .accessibleName = "Line",
     .font = FontFace::FixedWidth},
    {.name = "Command1", .kind = ControlKind::Button, .caption = "&Clear", .place = ClearPlace},
    {.name = "Command2", .kind = ControlKind::Button, .caption = "&Exit", .place = ExitPlace},
};

}  // namespace

const WindowDesign TerminalDesign = {.name = "Terminal",
                                     .caption = "Terminal Window",
                                     .clientWidth = 4800,
                                     .clientHeight = 5610,
                                     .minimizeButton = false,
                                     .controls = Controls};

std::optional<TerminalLayout> LayOutTerminal(int outerWidth, int outerHeight) {
    TerminalLayout layout = {TextPlace, ClearPlace, ExitPlace};
    layout.text.width = outerWidth - 345;
    layout.text.height = outerHeight - 1140;
    if (layout.text.width < 0 || layout.text.height < 0) {
        return std::nullopt;
    }
    layout.clear.top = outerHeight - 950;
    layout.exit.left = outerWidth - 1100;
    layout.exit.top = outerHeight - 950;
    return layout;
}

}  // namespace varno
