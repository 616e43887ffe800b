// The download: the program sends the ticket block, the indicator captures it.
#pragma once

#include "block/ticket_block.h"
#include "link/transfer.h"
#include "platform/platform.h"

namespace varno {

struct DownloadControls {
    Label& Message;
    ListBox& TicketList;
};

class Download {
  public:
    Download(const DownloadControls& controls, Platform& platform, const TicketBlock& block,
             Transfer& transfer, Announce announce)
        : controls_(controls),
          platform_(platform),
          block_(block),
          transfer_(transfer),
          announce_(std::move(announce)) {}

    // Returns when the line has taken everything, or the transfer has ended otherwise. Events run
    // meanwhile: commands that change the block find that the download has a copy of it.
    void Transmit_Click();
    void DownloadButton_Click();
    void Varno_Click() { announce_(CommandEvent::VarnoMenuOpens); }

  private:
    bool Confirm();
    void ShowProgress(int percent);

    DownloadControls controls_;
    Platform& platform_;
    const TicketBlock& block_;
    Transfer& transfer_;
    Announce announce_;
};

}  // namespace varno
