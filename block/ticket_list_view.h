// The list of tickets: what a selection shows, and the way of a ticket back into the editor.
#pragma once

#include <functional>

#include "block/block_controls.h"
#include "block/delete.h"
#include "block/ticket_block.h"
#include "codec/decoder.h"
#include "platform/announce.h"
#include "platform/dialogs.h"

namespace varno {

// Shows the block's tickets: clears `message`, loads the keys, adds a row for each ticket and marks
// the rows of bound tickets. Rows that the list holds already stay: the caller clears it first.
void ParseTicketBuffer(TicketBlock& block, ListBox& ticketList, Label& message);

class TicketListView {
  public:
    TicketListView(const BlockControls& controls, Dialogs& dialogs, const TicketBlock& block,
                   bool& ticketChanged, Catalogues catalogues, DeleteCommand& deleteCommand,
                   std::function<void()> saveTicket, Announce announce);

    void TicketList_Click();
    void TicketList_DblClick() { EditButton_Click(); }
    void TicketList_GotFocus();
    void TicketList_KeyUp(int keyCode);
    void EditButton_Click();  // nothing without a selected row

  private:
    void DecodeTicket(int ticketNumber);

    BlockControls controls_;
    Dialogs& dialogs_;
    const TicketBlock& block_;
    bool& ticketChanged_;
    Catalogues catalogues_;
    DeleteCommand& deleteCommand_;
    std::function<void()> saveTicket_;  // what Yes to the unsaved-ticket question runs
    Announce announce_;
    TicketDecoder decoder_;
};

}  // namespace varno
