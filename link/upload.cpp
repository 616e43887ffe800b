#include "link/upload.h"

#include "block/ticket_list_view.h"

namespace varno {

void Upload::Retrieve_Click() {
    if (controls_.TicketList.ListCount() > 0 &&
        dialogs_.ShowMessage("Items in ticket block will be lost.", "Warning", Buttons::OkCancel,
                             Icon::Critical) == Answer::Cancel) {
        return;
    }
    if (const Error error = transfer_.OpenPort(session_)) {
        dialogs_.ShowMessage(*error, "Error", Buttons::Ok, Icon::Critical);
        return;
    }
    incoming_ = {};
    controls_.Message.SetCaption(StartTransmission);
    controls_.Timer1.SetEnabled(true);
    announce_(CommandEvent::UploadStarted);
}

void Upload::UploadButton_Click() {
    controls_.TicketList.SetFocus();
    Retrieve_Click();
}

void Upload::MSComm1_OnComm() {
    const std::string chunk = controls_.MSComm1.Input();
    if (chunk.empty() || !session_.IsCurrent()) {
        return;
    }
    if (IncomingBlock::Begins(chunk)) {
        BeginImage();
    }
    const IncomingBlock::Step step = incoming_.Take(chunk, block_.TicketBuffer);
    controls_.Timer1.SetEnabled(false);
    controls_.Message.SetVisible(true);
    controls_.Message.SetCaption(ReceivingText(step.percent));
    if (step.complete) {
        Complete();
    }
}

void Upload::Stop() {
    if (session_.IsCurrent()) {
        session_.End();
        transfer_.EndTransfer();
    }
}

void Upload::BeginImage() {
    controls_.TicketList.Clear();
    announce_(CommandEvent::ImageBegins);
    controls_.RichText.SetContent({});
}

void Upload::Complete() {
    transfer_.EndTransfer();
    ParseTicketBuffer(block_, controls_.TicketList, controls_.Message);
    block_.TicketBuffer.resize(ImageLength);
    announce_(CommandEvent::UploadEnded);
}

}  // namespace varno
