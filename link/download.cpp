#include "link/download.h"

#include "link/block_transfer.h"

namespace varno {

void Download::Transmit_Click() {
    if (!Confirm()) {
        return;
    }
    announce_(CommandEvent::DownloadStarted);
    PortSession session;
    if (const Error error = transfer_.OpenPort(session)) {
        platform_.DialogBoxes().ShowMessage(*error, "", Buttons::Ok, Icon::Critical);
        return;
    }
    const std::string sent = block_.TicketBuffer;
    SendBlock(sent, session,
              {.ShowProgress = [this](int percent) { ShowProgress(percent); },
               .DoEvents = [this] { platform_.DoEvents(); }});
    if (session.IsCurrent()) {
        if (!session.Failure() && sent == block_.TicketBuffer) {
            announce_(CommandEvent::DownloadEnded);
        }
        transfer_.EndTransfer();
    }
}

void Download::DownloadButton_Click() {
    controls_.TicketList.SetFocus();
    Transmit_Click();
}

bool Download::Confirm() {
    return platform_.DialogBoxes().ShowMessage(
               StartCapturing + std::string(",\r\nthen click OK button."), "", Buttons::OkCancel,
               Icon::Exclamation) == Answer::Ok;
}

void Download::ShowProgress(int percent) {
    controls_.Message.SetVisible(true);
    controls_.Message.SetCaption(TransmittingText(percent));
    controls_.Message.Repaint();
}

}  // namespace varno
