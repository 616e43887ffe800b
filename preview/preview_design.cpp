#include "preview/preview_design.h"

#include <array>

#include "platform/paper_items.h"

namespace varno {
namespace {

using Kind = ControlKind;

constexpr ControlDesign PaperButton(std::string_view name, std::string_view caption, int left,
                                    int width) {
    return {
        .name = name, .kind = Kind::Button, .caption = caption, .place = {left, 7500, width, 480}};
}

constexpr std::array Controls{
    ControlDesign{.name = "ShownTicket",
                  .kind = Kind::Label,
                  .place = {120, 150, 2900, 270},
                  .accessibleDescription = "Ticket that is shown"},
    ControlDesign{.name = "PaperWidthLabel",
                  .kind = Kind::Label,
                  .caption = "Paper width",
                  .place = {3060, 150, 1020, 270},
                  .buddy = "PaperWidth",
                  .alignment = Alignment::Right},
    ControlDesign{.name = "PaperWidth",
                  .kind = Kind::DropDownList,
                  .place = {4140, 120, 2640, 330},
                  .accessibleName = "Paper width",
                  // To the accessibility bus the name is what the list shows.
                  .accessibleDescription = "Paper width"},
    ControlDesign{.name = "Paper",
                  .kind = Kind::PaperView,
                  .place = {120, 540, 6660, 6270},
                  .accessibleName = "Printed ticket",
                  .font = FontFace::FixedWidth},
    ControlDesign{.name = "Legend",
                  .kind = Kind::Label,
                  .place = {120, 6870, 6660, 270},
                  .accessibleDescription = "What the colours mean"},
    ControlDesign{.name = "Faults",
                  .kind = Kind::Label,
                  .place = {120, 7140, 6660, 270},
                  .accessibleDescription = "Faults in the code effects"},
    PaperButton("PrintButton", "&Print ...", 120, 1080),
    PaperButton("PdfButton", "Save as P&DF ...", 1260, 1560),
    PaperButton("CopyButton", "Copy as &text", 2880, 1320),
    ControlDesign{.name = "CloseButton",
                  .kind = Kind::Button,
                  .caption = "&Close",
                  .place = {5700, 7500, 1080, 480},
                  .isCancel = true},
    ControlDesign{.name = "PauseTimer", .kind = Kind::Timer, .enabled = false, .interval = 250},
};

constexpr std::array Items = PaperItemsBehind(
    {.name = "BackToTicket", .caption = "&Back to the ticket", .key = "F7", .controls = OnPaper});

constexpr WindowDesign Design{.name = "Preview",
                              .caption = "Ticket Preview",
                              .clientWidth = 6900,
                              .clientHeight = 8100,
                              .minimizeButton = false,
                              .controls = Controls,
                              .contextItems = Items};

constexpr std::array Layout{
    LayoutRow{"ShownTicket", Measure::Width, -4120},
    LayoutRow{"PaperWidthLabel", Measure::Left, -3960},
    LayoutRow{"PaperWidth", Measure::Left, -2880},
    LayoutRow{"Paper", Measure::Width, -360},
    LayoutRow{"Paper", Measure::Height, -2235},
    LayoutRow{"Legend", Measure::Top, -1635},
    LayoutRow{"Legend", Measure::Width, -360},
    LayoutRow{"Faults", Measure::Top, -1365},
    LayoutRow{"Faults", Measure::Width, -360},
    LayoutRow{"PrintButton", Measure::Top, -1005},
    LayoutRow{"PdfButton", Measure::Top, -1005},
    LayoutRow{"CopyButton", Measure::Top, -1005},
    LayoutRow{"CloseButton", Measure::Left, -1320},
    LayoutRow{"CloseButton", Measure::Top, -1005},
};

}  // namespace

const WindowDesign& PreviewDesign() {
    return Design;
}

std::span<const LayoutRow> PreviewLayout() {
    return Layout;
}

}  // namespace varno
