// The editor of the main window: the handlers of its events.
#pragma once

#include <functional>

#include "editor/insert_commands.h"
#include "editor/key_rules.h"
#include "platform/announce.h"
#include "platform/rich_text.h"

namespace varno {

class TicketEditor {
  public:
    // `ticketChanged` becomes true at every change of the text; others clear it. `put` takes the
    // ticket into the block.
    TicketEditor(RichTextBox& richText, bool& ticketChanged, InsertCommands& insertCommands,
                 std::function<void()> put, Announce announce);

    void RichText_Change();
    void RichText_Click();
    void RichText_DblClick();
    KeyFate RichText_KeyDown(int keyCode, int shift);
    void RichText_KeyUp();
    void RichText_GotFocus();

  private:
    void Run(InsertCommand command);

    RichTextBox& richText_;
    bool& ticketChanged_;
    InsertCommands& insertCommands_;
    std::function<void()> put_;
    Announce announce_;
    int digitRun_ = 0;  // digit keys typed in a row
};

}  // namespace varno
