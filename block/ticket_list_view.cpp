#include "block/ticket_list_view.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "block/unsaved_question.h"
#include "codec/memory_editor.h"

namespace varno {

namespace {

// The list sorts by itself, but a long list of a wrong file fills much faster in order.
std::vector<std::string> SortedRows(const TicketBlock& block) {
    std::vector<std::string> rows;
    for (const int ticketNumber : block.Tickets()) {
        rows.push_back(std::to_string(ticketNumber));
    }
    std::sort(rows.begin(), rows.end());
    return rows;
}

}  // namespace

void ParseTicketBuffer(TicketBlock& block, ListBox& ticketList, Label& message) {
    message.SetCaption("");
    block.LoadKeys();
    for (const std::string& row : SortedRows(block)) {
        ticketList.AddItem(row);
    }
    for (int i = 0; i < ticketList.ListCount(); ++i) {
        const std::string row = ticketList.List(i);
        if (const int key = block.KeyOf(LeadingNumber(row)); key != NoKey) {
            ticketList.SetItem(i, row + ' ' + KeyLetter(key));
        }
    }
}

TicketListView::TicketListView(const BlockControls& controls, Dialogs& dialogs,
                               const TicketBlock& block, bool& ticketChanged, Catalogues catalogues,
                               DeleteCommand& deleteCommand, std::function<void()> saveTicket,
                               Announce announce)
    : controls_(controls),
      dialogs_(dialogs),
      block_(block),
      ticketChanged_(ticketChanged),
      catalogues_(std::move(catalogues)),
      deleteCommand_(deleteCommand),
      saveTicket_(std::move(saveTicket)),
      announce_(std::move(announce)) {}

void TicketListView::TicketList_Click() {
    const int selected = controls_.TicketList.ListIndex();
    if (selected < 0) {
        return;
    }
    const std::string row = controls_.TicketList.List(selected);
    controls_.EditButton.SetToolTip("Move ticket " + row + "  to editor.");
    for (std::size_t key = 0; key < KeyCount; ++key) {
        ToggleButton& button = *controls_.KeyAssignment[key];
        button.SetToolTip("Assign ticket " + row + "  to Varno '" + std::string(KeyNames[key]) +
                          "' key.");
        button.SetValue(RowKeyLetter(row) == KeyNames[key].front());
    }
    controls_.DeleteButton.SetToolTip("Delete ticket " + row + "  from ticket block.");
    announce_(CommandEvent::ListSelected);
}

void TicketListView::TicketList_GotFocus() {
    TicketList_Click();
}

void TicketListView::TicketList_KeyUp(int keyCode) {
    if (keyCode == KeyDelete) {
        deleteCommand_.DeleteButton_Click();
    }
}

void TicketListView::EditButton_Click() {
    ListBox& list = controls_.TicketList;
    if (list.ListIndex() < 0) {
        return;
    }
    if (controls_.RichText.HasText() &&
        !AskToSave(dialogs_, UnsavedTicket, Buttons::YesNoCancel, ticketChanged_, saveTicket_)) {
        return;
    }
    if (list.ListIndex() < 0) {
        return;  // an upload that began meanwhile has emptied the list
    }
    announce_(CommandEvent::TicketIsEdited);
    DecodeTicket(LeadingNumber(list.List(list.ListIndex())));
    controls_.TicketName.SetCaption("");
    controls_.RichText.SetFocus();
    ticketChanged_ = false;
    controls_.TicketNumber.SetText("");
}

// The ticket replaces the editor's content in one step that can be undone; the caret ends behind
// it.
void TicketListView::DecodeTicket(int ticketNumber) {
    MemoryEditor decoded;
    decoder_.DecodeTicket(WordsOf(block_.TicketBuffer), ticketNumber, catalogues_, decoded);
    RichTextBox& editor = controls_.RichText;
    editor.SetContent(decoded.Marked());
    editor.SetSelStart(decoded.SelStart());
    editor.SetTypingFormat(decoded.TypingFormat());
}

}  // namespace varno
