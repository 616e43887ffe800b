#include "block/delete.h"

namespace varno {

void DeleteCommand::DeleteButton_Click() {
    ListBox& list = controls_.TicketList;
    const int selected = list.ListIndex();
    if (selected < 0) {
        return;
    }
    announce_(CommandEvent::TicketDeletes);
    block_.RemoveTicketRecord(LeadingNumber(list.List(selected)));
    list.RemoveItem(selected);
    for (ToggleButton* button : controls_.KeyAssignment) {
        button->SetValue(false);
    }
    controls_.RichText.SetFocus();
    announce_(CommandEvent::TicketDeleted);
}

}  // namespace varno
