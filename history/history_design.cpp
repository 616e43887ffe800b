#include "history/history_design.h"

#include <array>

#include "history/comparison.h"
#include "platform/paper_items.h"

namespace varno {
namespace {

using Kind = ControlKind;

// In the order of CopyColumn.
constexpr std::array CopyColumns{
    ColumnDesign{"When", 1740}, ColumnDesign{"What happened", 2910}, ColumnDesign{"Kind", 690},
    ColumnDesign{"Name", 1230}, ColumnDesign{"Tickets", 1350, true}, ColumnDesign{"Soundness", 900},
};
constexpr std::array<ColumnDesign, 1> Sentences{};

constexpr std::array Controls{
    ControlDesign{.name = "Summary",
                  .kind = Kind::Label,
                  .place = {120, 120, 12960, 270},
                  .accessibleDescription = "What is kept, and what could not be kept"},
    ControlDesign{.name = "FindLabel",
                  .kind = Kind::Label,
                  .caption = "Find",
                  .place = {120, 540, 480, 270},
                  .buddy = "Find"},
    ControlDesign{.name = "Find",
                  .kind = Kind::TextBox,
                  .place = {600, 510, 8760, 330},
                  .accessibleName = "Words to find",
                  .accessibleDescription = "Shows the copies that hold these words"},
    ControlDesign{.name = "Copies",
                  .kind = Kind::Table,
                  .place = {120, 960, 9240, 3900},
                  .accessibleName = "Copies",
                  .columns = CopyColumns},
    ControlDesign{.name = "DifferencesLabel",
                  .kind = Kind::Label,
                  .caption = ComparisonLegend,
                  .place = {120, 4980, 9240, 270},
                  .buddy = "Differences"},
    ControlDesign{.name = "Differences",
                  .kind = Kind::Table,
                  .place = {120, 5280, 9240, 1800},
                  .accessibleName = "What differs",
                  .font = FontFace::FixedWidth,
                  .columns = Sentences},
    ControlDesign{.name = "CopyTicketLabel",
                  .kind = Kind::Label,
                  .caption = "Paper of",
                  .place = {9480, 540, 780, 270},
                  .buddy = "CopyTicket"},
    ControlDesign{.name = "CopyTicket",
                  .kind = Kind::DropDownList,
                  .place = {10260, 510, 2820, 330},
                  .accessibleName = "Paper of",
                  // To the accessibility bus the name is what the list shows.
                  .accessibleDescription = "Ticket of the copy whose paper is shown"},
    ControlDesign{.name = "Paper",
                  .kind = Kind::PaperView,
                  .place = {9480, 960, 3600, 6120},
                  .accessibleName = "Printed ticket",
                  .font = FontFace::FixedWidth},
    ControlDesign{.name = "OpenButton",
                  .kind = Kind::Button,
                  .caption = "&Open",
                  .place = {120, 7200, 1320, 480}},
    ControlDesign{.name = "SaveCopyButton",
                  .kind = Kind::Button,
                  .caption = "&Save copy as ...",
                  .place = {1560, 7200, 1740, 480}},
    ControlDesign{.name = "CloseButton",
                  .kind = Kind::Button,
                  .caption = "&Close",
                  .place = {11760, 7200, 1320, 480},
                  .isCancel = true},
    ControlDesign{.name = "PauseTimer", .kind = Kind::Timer, .enabled = false, .interval = 250},
    ControlDesign{.name = "LearnTimer", .kind = Kind::Timer, .enabled = false, .interval = 0},
};

constexpr std::array<std::string_view, 1> OnCopies{"Copies"};
constexpr std::array Items = PaperItemsBehind(
    {.name = "BackToWork", .caption = "&Back to the work", .key = "F6", .controls = OnCopies});

constexpr WindowDesign Design{.name = "History",
                              .caption = "History",
                              .clientWidth = 13200,
                              .clientHeight = 7800,
                              .minimizeButton = false,
                              .controls = Controls,
                              .contextItems = Items};

// Percent of the width that a wider window gives to the copies, and to the paper.
constexpr int OfCopies = 60;
constexpr int OfPaper = 100 - OfCopies;

constexpr std::array Layout{
    LayoutRow{"Summary", Measure::Width, -360},
    LayoutRow{"Find", Measure::Width, 768, OfCopies},
    LayoutRow{"Copies", Measure::Width, 1248, OfCopies},
    LayoutRow{"Copies", Measure::Height, -4305},
    LayoutRow{"DifferencesLabel", Measure::Top, -3225},
    LayoutRow{"DifferencesLabel", Measure::Width, 1248, OfCopies},
    LayoutRow{"Differences", Measure::Top, -2925},
    LayoutRow{"Differences", Measure::Width, 1248, OfCopies},
    LayoutRow{"CopyTicketLabel", Measure::Left, 1488, OfCopies},
    LayoutRow{"CopyTicket", Measure::Left, 2268, OfCopies},
    LayoutRow{"CopyTicket", Measure::Width, -2508, OfPaper},
    LayoutRow{"Paper", Measure::Left, 1488, OfCopies},
    LayoutRow{"Paper", Measure::Width, -1728, OfPaper},
    LayoutRow{"Paper", Measure::Height, -2085},
    LayoutRow{"OpenButton", Measure::Top, -1005},
    LayoutRow{"SaveCopyButton", Measure::Top, -1005},
    LayoutRow{"CloseButton", Measure::Left, -1560},
    LayoutRow{"CloseButton", Measure::Top, -1005},
};

}  // namespace

const WindowDesign& HistoryDesign() {
    return Design;
}

std::span<const LayoutRow> HistoryLayout() {
    return Layout;
}

}  // namespace varno
