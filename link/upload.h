// The upload: the indicator sends its ticket buffer image, the program collects it.
#pragma once

#include "block/ticket_block.h"
#include "link/block_transfer.h"
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
    Upload(const UploadControls& controls, Dialogs& dialogs, TicketBlock& block, Transfer& transfer,
           Announce announce)
        : controls_(controls),
          dialogs_(dialogs),
          block_(block),
          transfer_(transfer),
          announce_(std::move(announce)) {}

    void Retrieve_Click();
    void UploadButton_Click();
    // Characters that belong to no upload, such as those that arrive during a download, are
    // dropped.
    void MSComm1_OnComm();
    // Ends the upload, if one is under way: what still comes is not taken.
    void Stop();

  private:
    void BeginImage();
    void Complete();

    UploadControls controls_;
    Dialogs& dialogs_;
    TicketBlock& block_;
    Transfer& transfer_;
    Announce announce_;
    PortSession session_;
    IncomingBlock incoming_;
};

}  // namespace varno
