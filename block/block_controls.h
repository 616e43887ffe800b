// The controls of the main window that the ticket block is worked with.
#pragma once

#include <array>

#include "block/rows.h"
#include "platform/controls.h"
#include "platform/rich_text.h"

namespace varno {

struct BlockControls {
    TextBox& TicketNumber;
    Button& PutButton;
    Button& EditButton;
    std::array<ToggleButton*, KeyCount> KeyAssignment;  // none is null
    Button& DeleteButton;
    ListBox& TicketList;
    RichTextBox& RichText;
    Label& TicketName;
};

}  // namespace varno
