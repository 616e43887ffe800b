#include "block/put.h"

#include <string>

#include "codec/encoder.h"
#include "platform/platform.h"

namespace varno {

bool PutCommand::TicketNumber_KeyPress(char32_t character) {
    return character == KeyBackspace || (character >= U'0' && character <= U'9');
}

void PutCommand::TicketNumber_Change() {
    controls_.PutButton.SetToolTip("Put ticket " + controls_.TicketNumber.Text() +
                                   " into ticket block.");
    announce_(CommandEvent::NumberChanged);
}

void PutCommand::PutButton_Click() {
    const int ticketNumber = LeadingNumber(controls_.TicketNumber.Text());
    if (!IsTicketNumber(ticketNumber)) {
        dialogs_.ShowMessage("Enter a valid ticket number (" + TicketNumbers("..") + ").",
                             "Bad Ticket Number", Buttons::Ok, Icon::Exclamation);
        controls_.TicketNumber.SetFocus();
    } else {
        if (!ConfirmOverwriting(ticketNumber)) {
            return;
        }
        PutTicket();
        controls_.RichText.SetFocus();
    }
    announce_(CommandEvent::PutEnded);
}

// True also where there is nothing to overwrite.
bool PutCommand::ConfirmOverwriting(int ticketNumber) {
    for (int i = 0; i < controls_.TicketList.ListCount(); ++i) {
        if (LeadingNumber(controls_.TicketList.List(i)) == ticketNumber) {
            const bool isConfirmed =
                dialogs_.ShowMessage("Overwrite Ticket #" + std::to_string(ticketNumber) + "?",
                                     "Existing Ticket Number", Buttons::YesNo,
                                     Icon::Question) == Answer::Yes;
            if (isConfirmed) {
                announce_(CommandEvent::TicketOverwrites);
            }
            return isConfirmed;
        }
    }
    return true;
}

void PutCommand::PutTicket() {
    const std::string numberText = controls_.TicketNumber.Text();
    const int ticketNumber = LeadingNumber(numberText);
    const std::string record = EncodeTicket(controls_.RichText.Content(), ticketNumber);
    controls_.RichText.SetSelStart(controls_.RichText.SelStart());  // encoding drops a selection
    if (block_.PutRecord(ticketNumber, record) == PutResult::TooBig) {
        dialogs_.ShowMessage("too big", ApplicationTitle, Buttons::Ok, Icon::None);
        return;
    }
    const int place = RemoveOlderRow(ticketNumber);
    controls_.TicketList.InsertItem(place, numberText);
}

// Removes the row of an older ticket of the number; returns where the new row belongs.
int PutCommand::RemoveOlderRow(int ticketNumber) {
    int place = 0;
    for (; place < controls_.TicketList.ListCount(); ++place) {
        const int rowNumber = LeadingNumber(controls_.TicketList.List(place));
        if (rowNumber == ticketNumber) {
            controls_.TicketList.RemoveItem(place);
            break;
        }
        if (rowNumber > ticketNumber) {
            break;
        }
    }
    return place;
}

}  // namespace varno
