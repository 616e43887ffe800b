// A window as it was designed: the tables that an adapter builds a window from.
// Measures are twips, 1440 to the inch; 15 twips are one pixel at 96 dpi.
#pragma once

#include <span>
#include <string_view>

#include "codec/marked_text.h"

namespace varno {

struct Place {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;

    bool operator==(const Place&) const = default;
};

enum class ControlKind {
    StatusStrip,  // a bar docked to the top edge, as wide as the window
    Frame,        // groups controls; no border, no caption
    Label,
    TextBox,       // one line
    TextArea,      // many lines, scroll bars, plain text
    RichTextBox,   // the ticket editor
    DocumentView,  // shows a formatted document, read only
    PaperView,     // shows printed paper, read only
    Button,
    ToggleButton,  // stays pressed
    CheckBox,
    ListBox,
    SimpleCombo,   // an edit field over a list that is always open
    DropDownList,  // a list of which one entry is chosen
    Table,         // rows in columns, read only
    Timer,         // invisible; `interval` counts
};

enum class Alignment { Left, Centre, Right };

enum class FontFace {
    Interface,   // a small sans serif, of boxes and menus too
    FixedWidth,  // Courier, 9.75 points
    List,        // a sans serif of 9.75 points
};

struct ColumnDesign {
    std::string_view caption;
    int width = 0;           // 0: as wide as what stands in it
    bool takesRest = false;  // what the others leave, instead of its width
};

struct ControlDesign {
    std::string_view name;  // also the objectName; of a control array "KeyAssignment(0)"
    ControlKind kind = ControlKind::Label;
    std::string_view caption = {};    // "&" marks the access key
    std::string_view container = {};  // name of a StatusStrip or Frame; empty: the window
    Place place = {};
    bool enabled = true;
    bool visible = true;

    // What assistive technology calls it, and what more it says. A control without a name of its
    // own is called by its caption.
    std::string_view accessibleName = {};
    std::string_view accessibleDescription = {};

    std::string_view buddy = {};  // Label: the control that it names
    FontFace font = FontFace::Interface;
    Alignment alignment = Alignment::Left;
    Colour colour = TextColour;  // of the text; black follows the desktop theme
    bool sorted = false;         // ListBox, SimpleCombo: entries in alphabetical order
    int maxLength = 0;           // TextBox: characters it takes; 0 means any number
    int interval = 0;            // Timer: milliseconds
    int growsTo = 0;             // Label: widens so far for a long caption; its aligned edge stays
    bool isDefault = false;      // Button: pressed by Enter
    bool isCancel = false;       // Button: pressed by Esc
    std::span<const ColumnDesign> columns = {};  // Table; without captions it has no header
    // SimpleCombo: the access names of its two halves; accessibleName names the edit field.
    std::string_view listAccessibleName = {};
};

struct MenuDesign {
    std::string_view name;
    std::string_view parent = {};   // empty: in the menu bar
    std::string_view caption = {};  // "-" is a separator
    bool enabled = true;
    bool visible = true;
};

// A command outside the menu bar: an item of the context menus of some controls, with a key that
// works in the whole window when no control wants it. A context menu opens by mouse, Menu key and
// Shift+F10, behind what a control has in its own.
struct ContextItemDesign {
    std::string_view name;
    std::string_view caption;
    std::string_view key;  // such as "F7" or "Ctrl+C"
    std::span<const std::string_view> controls;
    bool checkable = false;
};

struct WindowDesign {
    std::string_view name;
    std::string_view caption;
    int clientWidth = 0;
    int clientHeight = 0;
    bool sizable = true;
    bool minimizeButton = true;
    bool maximizeButton = true;
    std::span<const ControlDesign> controls;
    std::span<const MenuDesign> menus = {};
    std::span<const ContextItemDesign> contextItems = {};
};

// The layout rules use outer measures: the client area plus the frame they were drawn for,
// whatever frame the window manager draws. The menu bar counts as part of the frame.
inline constexpr int FrameWidth = 120;
inline constexpr int FrameHeightWithoutMenu = 405;
inline constexpr int FrameHeightWithMenu = 690;

}  // namespace varno
