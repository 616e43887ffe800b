// The upload: the indicator sends its ticket buffer image, the program collects it.
#pragma once

#include <functional>

#include "block/ticket_block.h"
#include "link/transfer.h"
#include "platform/dialogs.h"
#include "platform/rich_text.h"

namespace varno {

struct UploadControls {
    SerialControl& MSComm1;
    Label& Message;
    Timer& Timer1;
    ListBox& TicketList;
    RichTextBox& RichText;
};

class Upload {
  public:
    Upload(const UploadControls& controls, Dialogs& dialogs, TicketBlock& block, Transfer& transfer)
        : controls_(controls), dialogs_(dialogs), block_(block), transfer_(transfer) {}

    std::function<void()> OnUploadStarted;  // the port is open, the indicator may send
    std::function<void()> OnImageBegins;    // the list has been emptied, the editor will be
    std::function<void()> OnUploadEnded;    // the image is complete, the list shows it

    void Retrieve_Click();
    void UploadButton_Click();
    // Characters that belong to no upload, such as those that arrive during a download, are
    // dropped.
    void MSComm1_OnComm();

  private:
    void BeginImage();
    void Complete();

    UploadControls controls_;
    Dialogs& dialogs_;
    TicketBlock& block_;
    Transfer& transfer_;
    int number_ = -1;          // of this upload among all transfers; -1: none yet
    bool imageBegun_ = false;  // the ":" of this upload has arrived
};

}  // namespace varno
