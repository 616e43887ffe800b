#include "practice/indicator_design.h"

#include <array>

#include "platform/paper_items.h"

namespace varno {
namespace {

using Kind = ControlKind;

constexpr Colour DarkRed = 0x000088;
constexpr int MiddleOfATransfer = 4000;  // characters, of 8369 down and 8009 up

constexpr ControlDesign TextRow(std::string_view name, std::string_view purpose, int top) {
    return {.name = name,
            .kind = Kind::Label,
            .place = {120, top, 6060, 270},
            .accessibleDescription = purpose};
}

constexpr ControlDesign PanelButton(std::string_view name, std::string_view caption,
                                    std::string_view purpose, int left, int width, int top) {
    return {.name = name,
            .kind = Kind::Button,
            .caption = caption,
            .place = {left, top, width, 480},
            .accessibleDescription = purpose};
}

constexpr int KeysTop = 6720;
constexpr int ParametersTop = 7260;

constexpr std::array Controls{
    ControlDesign{.name = "SimulatedStrip", .kind = Kind::StatusStrip, .place = {0, 0, 0, 315}},
    ControlDesign{.name = "Simulated",
                  .kind = Kind::Label,
                  .caption = "SIMULATED INDICATOR: nothing is weighed",
                  .container = "SimulatedStrip",
                  .place = {120, 60, 6060, 255},
                  .accessibleDescription = "What this is",
                  .alignment = Alignment::Centre,
                  .colour = DarkRed},
    TextRow("Display", "Display", 420),
    TextRow("LineState", "Line", 720),
    ControlDesign{.name = "Paper",
                  .kind = Kind::PaperView,
                  .place = {120, 1080, 6060, 5520},
                  .accessibleName = "Printed tickets",
                  .font = FontFace::FixedWidth},
    PanelButton("PrintKey", "&Print", "Prints the ticket of the key Print", 120, 1425, KeysTop),
    PanelButton("StartKey", "&Start", "Prints the ticket of the key Start", 1665, 1425, KeysTop),
    PanelButton("InKey", "&In", "Prints the ticket of the key In", 3210, 1425, KeysTop),
    PanelButton("OutKey", "&Out", "Prints the ticket of the key Out", 4755, 1425, KeysTop),
    PanelButton("Parameter77", "Parameter 7&7: transmit tickets",
                "Sends its tickets; start the upload in the program first", 120, 2970,
                ParametersTop),
    PanelButton("Parameter78", "Parameter 7&8: capture tickets",
                "Awaits tickets; the download in the program asks for it", 3210, 2970,
                ParametersTop),
};

constexpr std::array Menus{
    MenuDesign{.name = "LineMenu", .caption = "&Line"},
    MenuDesign{.name = "Unplug", .parent = "LineMenu", .caption = "&Unplug the cable for a second"},
    MenuDesign{.name = "UnplugLater",
               .parent = "LineMenu",
               .caption = "Un&plug it in the middle of the next transfer"},
    MenuDesign{.name = "DamageLater",
               .parent = "LineMenu",
               .caption = "&Damage a character of the next transfer"},
    MenuDesign{.name = "StallLater",
               .parent = "LineMenu",
               .caption = "&Stand still in the middle of the next transfer"},
    MenuDesign{
        .name = "GoOn", .parent = "LineMenu", .caption = "&Go on without fault", .enabled = false},
    MenuDesign{.name = "LineDivider", .parent = "LineMenu", .caption = "-"},
    MenuDesign{.name = "Noise", .parent = "LineMenu", .caption = "Send &noise that means nothing"},
    MenuDesign{.name = "SpeedMenu", .caption = "Spee&d"},
    MenuDesign{.name = "FullSpeed", .parent = "SpeedMenu", .caption = "As &fast as it goes"},
    MenuDesign{.name = "Speed9600", .parent = "SpeedMenu", .caption = "&9600 baud"},
    MenuDesign{.name = "Speed1200", .parent = "SpeedMenu", .caption = "&1200 baud"},
    MenuDesign{.name = "PaperMenu", .caption = "Pape&r"},
    MenuDesign{.name = "CopyPaper", .parent = "PaperMenu", .caption = "&Copy as text"},
    MenuDesign{.name = "TearOff", .parent = "PaperMenu", .caption = "&Tear off"},
};

constexpr WindowDesign Design{.name = "Indicator",
                              .caption = "Varno Indicator (SIMULATED)",
                              .clientWidth = 6300,
                              .clientHeight = 7860,
                              .controls = Controls,
                              .menus = Menus,
                              .contextItems = PaperItems};

constexpr std::array Layout{
    LayoutRow{"Simulated", Measure::Width, -360},  LayoutRow{"Display", Measure::Width, -360},
    LayoutRow{"LineState", Measure::Width, -360},  LayoutRow{"Paper", Measure::Width, -360},
    LayoutRow{"Paper", Measure::Height, -3030},    LayoutRow{"PrintKey", Measure::Top, -1830},
    LayoutRow{"StartKey", Measure::Top, -1830},    LayoutRow{"InKey", Measure::Top, -1830},
    LayoutRow{"OutKey", Measure::Top, -1830},      LayoutRow{"Parameter77", Measure::Top, -1290},
    LayoutRow{"Parameter78", Measure::Top, -1290},
};

constexpr std::array Faults{
    FaultItem{"Unplug", Line::Fault::Cut, 0},
    FaultItem{"UnplugLater", Line::Fault::Cut, MiddleOfATransfer},
    FaultItem{"DamageLater", Line::Fault::Damage, MiddleOfATransfer},
    FaultItem{"StallLater", Line::Fault::Stall, MiddleOfATransfer},
};

constexpr std::array Speeds{SpeedItem{"FullSpeed", 0}, SpeedItem{"Speed9600", 9600},
                            SpeedItem{"Speed1200", 1200}};

constexpr std::array<std::string_view, 4> Keys{"PrintKey", "StartKey", "InKey", "OutKey"};

}  // namespace

const WindowDesign& IndicatorDesign() {
    return Design;
}

std::span<const LayoutRow> IndicatorLayout() {
    return Layout;
}

std::span<const FaultItem> FaultItems() {
    return Faults;
}

std::span<const SpeedItem> SpeedItems() {
    return Speeds;
}

std::span<const std::string_view> KeyButtons() {
    return Keys;
}

}  // namespace varno
