#include "link/upload.h"

#include "block/parse.h"
#include "link/progress.h"

namespace varno {

namespace {

constexpr const char* Prompt = "Start TICKET BUFFER TRANSMISSION in Varno now! (parameter 77)";

}  // namespace

void Upload::Retrieve_Click() {
    if (controls_.TicketList.ListCount() > 0 &&
        dialogs_.ShowMessage("Items in ticket block will be lost.", "Warning", Buttons::OkCancel,
                             Icon::Critical) == Answer::Cancel) {
        return;
    }
    if (const Error error = transfer_.OpenPort()) {
        dialogs_.ShowMessage(*error, "Error", Buttons::Ok, Icon::Critical);
        return;
    }
    number_ = transfer_.Current();
    imageBegun_ = false;
    controls_.Message.SetCaption(Prompt);
    controls_.Timer1.SetEnabled(true);
    if (OnUploadStarted) {
        OnUploadStarted();
    }
}

void Upload::UploadButton_Click() {
    controls_.TicketList.SetFocus();
    Retrieve_Click();
}

void Upload::MSComm1_OnComm() {
    std::string chunk = controls_.MSComm1.Input();
    if (chunk.empty() || transfer_.Current() != number_) {
        return;
    }
    if (const std::size_t colon = chunk.find(':'); colon != std::string::npos) {
        chunk.erase(0, colon);
        BeginImage();
    }
    controls_.Timer1.SetEnabled(false);
    controls_.Message.SetVisible(true);
    std::string& image = block_.TicketBuffer;
    controls_.Message.SetCaption(ReceivingText(ProgressPercent(image.size())));

    const std::size_t collected = image.size() + chunk.size();
    if (image.size() < ImageLength) {
        image += chunk;
    }
    // Any character behind the image says that it is complete. It may come in the chunk that ends
    // the image, and nothing more may come after it.
    if (imageBegun_ && collected > ImageLength) {
        Complete();
    }
}

void Upload::BeginImage() {
    imageBegun_ = true;
    controls_.TicketList.Clear();
    if (OnImageBegins) {
        OnImageBegins();
    }
    block_.TicketBuffer.clear();
    controls_.RichText.SetContent({});
}

void Upload::Complete() {
    transfer_.EndTransfer();
    ParseTicketBuffer(block_, controls_.TicketList, controls_.Message);
    block_.TicketBuffer.resize(ImageLength);
    if (OnUploadEnded) {
        OnUploadEnded();
    }
}

}  // namespace varno
