#include "link/terminal_design.h"

namespace varno {

namespace {

constexpr ControlDesign Controls[] = {
    {.name = "Text1",
     .kind = ControlKind::TextArea,
     .place = {120, 60, 4515, 4875},
     .accessibleName = "Line",
     .font = FontFace::FixedWidth},
    {.name = "Command1",
     .kind = ControlKind::Button,
     .caption = "&Clear",
     .place = {120, 5040, 855, 495}},
    {.name = "Command2",
     .kind = ControlKind::Button,
     .caption = "&Exit",
     .place = {3780, 5040, 855, 495}},
};

constexpr LayoutRow Layout[] = {
    {"Text1", Measure::Width, -345},  {"Text1", Measure::Height, -1140},
    {"Command1", Measure::Top, -950}, {"Command2", Measure::Left, -1100},
    {"Command2", Measure::Top, -950},
};

}  // namespace

const std::span<const LayoutRow> TerminalLayout = Layout;

const WindowDesign TerminalDesign = {.name = "Terminal",
                                     .caption = "Terminal Window",
                                     .clientWidth = 4800,
                                     .clientHeight = 5610,
                                     .minimizeButton = false,
                                     .controls = Controls};

}  // namespace varno
