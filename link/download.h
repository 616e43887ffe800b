// The download: the program sends the ticket block, the indicator captures it.
#pragma once

#include <functional>
#include <string_view>

#include "block/ticket_block.h"
#include "link/transfer.h"
#include "platform/platform.h"

namespace varno {

struct DownloadControls {
    SerialControl& MSComm1;
    Label& Message;
    ListBox& TicketList;
};

class Download {
  public:
    Download(const DownloadControls& controls, Platform& platform, const TicketBlock& block,
             Transfer& transfer)
        : controls_(controls), platform_(platform), block_(block), transfer_(transfer) {}

    std::function<void()> OnDownloadStarted;  // confirmed; the port will be opened
    std::function<void()> OnVarnoOpened;      // the menu is about to show its commands

    // Returns when the line has taken everything, or the transfer has ended otherwise. Events run
    // meanwhile: commands that change the block find that the download has a copy of it.
    void Transmit_Click();
    void DownloadButton_Click();
    void Varno_Click();

  private:
    class Line;

    bool Confirm();
    void SendImage(Line& line, std::string_view image);
    void ShowProgress(int percent);

    DownloadControls controls_;
    Platform& platform_;
    const TicketBlock& block_;
    Transfer& transfer_;
};

}  // namespace varno
