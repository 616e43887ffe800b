#include "app/main_window_design.h"

#include <array>

#include "block/rows.h"

namespace varno {
namespace {

using Kind = ControlKind;

constexpr Colour Blue = 0xFF0000;

constexpr ControlDesign KeyButton(std::string_view name, std::string_view caption, int top) {
    return {.name = name,
            .kind = Kind::ToggleButton,
            .caption = caption,
            .container = "Frame2",
            .place = {60, top, 675, 195},
            .enabled = false};
}

constexpr std::array Controls{
    ControlDesign{.name = "Picture1", .kind = Kind::StatusStrip, .place = {0, 0, 0, 315}},
    ControlDesign{.name = "Message",
                  .kind = Kind::Label,
                  .container = "Picture1",
                  .place = {120, 60, 6315, 255},
                  .accessibleDescription = "Status",
                  .alignment = Alignment::Centre,
                  .colour = Blue},
    ControlDesign{.name = "TicketName",
                  .kind = Kind::Label,
                  .place = {180, 360, 1245, 195},
                  .accessibleDescription = "Ticket file"},
    ControlDesign{.name = "RichText",
                  .kind = Kind::RichTextBox,
                  .place = {120, 600, 4395, 4275},
                  .accessibleName = "Ticket editor",
                  .font = FontFace::FixedWidth},
    ControlDesign{.name = "Frame1", .kind = Kind::Frame, .place = {4560, 600, 795, 1035}},
    ControlDesign{.name = "Label1",
                  .kind = Kind::Label,
                  .caption = "#",
                  .container = "Frame1",
                  .place = {60, 60, 195, 195},
                  .accessibleDescription = "Ticket number",
                  .buddy = "TicketNumber"},
    ControlDesign{.name = "TicketNumber",
                  .kind = Kind::TextBox,
                  .container = "Frame1",
                  .place = {240, 0, 495, 285},
                  .accessibleName = "Ticket number",
                  .maxLength = 3},
    ControlDesign{.name = "PutButton",
                  .kind = Kind::Button,
                  .caption = "-->",
                  .container = "Frame1",
                  .place = {60, 360, 675, 555},
                  .enabled = false,
                  .accessibleName = "Put ticket into block"},
    ControlDesign{.name = "Frame2", .kind = Kind::Frame, .place = {4560, 1680, 795, 2355}},
    ControlDesign{.name = "EditButton",
                  .kind = Kind::Button,
                  .caption = "<--",
                  .container = "Frame2",
                  .place = {60, 60, 675, 555},
                  .enabled = false,
                  .accessibleName = "Move ticket to editor"},
    KeyButton("KeyAssignment(0)", KeyNames[0], 720),
    KeyButton("KeyAssignment(1)", KeyNames[1], 960),
    KeyButton("KeyAssignment(2)", KeyNames[2], 1200),
    KeyButton("KeyAssignment(3)", KeyNames[3], 1440),
    ControlDesign{.name = "DeleteButton",
                  .kind = Kind::Button,
                  .caption = "Delete",
                  .container = "Frame2",
                  .place = {60, 1740, 675, 555},
                  .enabled = false,
                  .accessibleName = "Delete ticket"},
    ControlDesign{.name = "ListName",
                  .kind = Kind::Label,
                  .caption = " ",
                  .place = {5880, 360, 465, 195},
                  .accessibleDescription = "Block file",
                  .alignment = Alignment::Right,
                  .growsTo = 3000},
    ControlDesign{.name = "TicketList",
                  .kind = Kind::ListBox,
                  .place = {5400, 600, 975, 3420},
                  .accessibleName = "Tickets",
                  .font = FontFace::List,
                  .sorted = true},
    ControlDesign{.name = "UploadButton",
                  .kind = Kind::Button,
                  .caption = "Up load",
                  .place = {5340, 4200, 555, 675},
                  .accessibleName = "Upload from indicator"},
    ControlDesign{.name = "DownloadButton",
                  .kind = Kind::Button,
                  .caption = "Down load",
                  .place = {5940, 4200, 555, 675},
                  .enabled = false,
                  .accessibleName = "Download to indicator"},
    ControlDesign{.name = "Timer1", .kind = Kind::Timer, .interval = 1500},
    ControlDesign{.name = "SafekeepingTimer", .kind = Kind::Timer, .interval = 30'000},
};

constexpr std::array Menus{
    MenuDesign{.name = "FileMenu", .caption = "&File"},
    MenuDesign{.name = "LoadTicket", .parent = "FileMenu", .caption = "&Open Ticket"},
    MenuDesign{
        .name = "SaveTicket", .parent = "FileMenu", .caption = "&Save Ticket", .enabled = false},
    MenuDesign{.name = "SaveTicketAs",
               .parent = "FileMenu",
               .caption = "Save Ticket &As ...",
               .enabled = false},
    MenuDesign{.name = "divider1", .parent = "FileMenu", .caption = "-"},
    MenuDesign{.name = "LoadList", .parent = "FileMenu", .caption = "&Open Ticket Block"},
    MenuDesign{.name = "SaveList",
               .parent = "FileMenu",
               .caption = "&Save Ticket Block As ...",
               .enabled = false},
    MenuDesign{.name = "divider2", .parent = "FileMenu", .caption = "-"},
    MenuDesign{.name = "Exit", .parent = "FileMenu", .caption = "E&xit"},
    MenuDesign{.name = "Varno", .caption = "&Varno Communications"},
    MenuDesign{.name = "Abort",
               .parent = "Varno",
               .caption = "&Abort Communications with Varno",
               .visible = false},
    MenuDesign{.name = "Retrieve", .parent = "Varno", .caption = "&Upload Ticket Block from Varno"},
    MenuDesign{.name = "Transmit", .parent = "Varno", .caption = "&Download Ticket Block to Varno"},
    MenuDesign{.name = "Serial", .parent = "Varno", .caption = "&Serial Port Configuration"},
    MenuDesign{.name = "ControlCodes", .caption = "&Control Codes"},
    MenuDesign{.name = "PrintCodes", .caption = "&Print Codes"},
    MenuDesign{.name = "ascii", .caption = "&ASCII Codes"},
    MenuDesign{.name = "OpenTerminalWindow", .caption = "&Terminal Window"},
    MenuDesign{.name = "help", .caption = "&Help"},
    MenuDesign{.name = "ShowTutorial", .parent = "help", .caption = "&Tutorial"},
    MenuDesign{.name = "about", .parent = "help", .caption = "&About"},
};

constexpr std::array Layout{
    LayoutRow{"Message", Measure::Width, -405},
    LayoutRow{"RichText", Measure::Width, -2295},
    LayoutRow{"RichText", Measure::Height, -1425},
    LayoutRow{"TicketName", Measure::Width, -3615},
    LayoutRow{"TicketList", Measure::Right, -315},
    // Ends above the transfer buttons; its designed height reaches under them.
    LayoutRow{"TicketList", Measure::Height, -2100},
    LayoutRow{"UploadButton", Measure::Left, -1360},
    LayoutRow{"UploadButton", Measure::Top, -1500},
    LayoutRow{"DownloadButton", Measure::Left, -770},
    LayoutRow{"DownloadButton", Measure::Top, -1500},
    LayoutRow{"ListName", Measure::Right, -315},
    LayoutRow{"Frame1", Measure::Left, -2130},
    LayoutRow{"Frame2", Measure::Left, -2130},
};

constexpr std::array<std::string_view, 2> EditorAndList{"RichText", "TicketList"};
constexpr std::array<std::string_view, 1> Editor{"RichText"};
constexpr std::array ContextItems{
    ContextItemDesign{
        .name = "ShowHistory", .caption = "Histor&y", .key = "F6", .controls = EditorAndList},
    ContextItemDesign{.name = "ShowPreview",
                      .caption = "Ticket Pre&view",
                      .key = "F7",
                      .controls = EditorAndList},
    ContextItemDesign{
        .name = "TellCaret", .caption = "&Where the Caret Is", .key = "F2", .controls = Editor},
    ContextItemDesign{.name = "ShowMarks",
                      .caption = "&Frame the Codes",
                      .key = "F8",
                      .controls = Editor,
                      .checkable = true},
    ContextItemDesign{.name = "ShowTutorialPage",
                      .caption = "Tutorial in the &Browser",
                      .key = "F1",
                      .controls = EditorAndList},
};

constexpr WindowDesign Design{.name = "Form1",
                              .caption = "Varno Ticket Formatter",
                              .clientWidth = 7605,
                              .clientHeight = 5400,
                              .controls = Controls,
                              .menus = Menus,
                              .contextItems = ContextItems};

}  // namespace

const WindowDesign& MainWindowDesign() {
    return Design;
}
std::span<const LayoutRow> MainWindowLayout() {
    return Layout;
}

}  // namespace varno
