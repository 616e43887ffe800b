// The editor of the main window: the handlers of its events.
#pragma once

#include <functional>

#include "editor/insert_commands.h"
#include "editor/key_rules.h"
#include "platform/rich_text.h"

namespace varno {

class TicketEditor {
  public:
    // `ticketChanged` becomes true at every change of the text; others clear it.
    TicketEditor(RichTextBox& richText, bool& ticketChanged, InsertCommands& insertCommands);

    void RichText_Change();
    void RichText_Click();
    void RichText_DblClick();
    KeyFate RichText_KeyDown(int keyCode, int shift);
    void RichText_KeyUp();
    void RichText_GotFocus();

    std::function<void()> OnChanged;
    std::function<void()> OnFocused;
    std::function<void()> OnPutRequested;  // the ticket in the editor is to go into the block

  private:
    void Run(InsertCommand command);

    RichTextBox& richText_;
    bool& ticketChanged_;
    InsertCommands& insertCommands_;
    int digitRun_ = 0;  // digit keys typed in a row
};

}  // namespace varno
