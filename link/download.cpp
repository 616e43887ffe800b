#include "link/download.h"

#include <string>

#include "link/progress.h"

namespace varno {

namespace {

// The fill behind the image that the indicator expects.
constexpr std::string_view Fill = "FF";
constexpr int FillPasses = 181;

}  // namespace

// The line as one download has it. From the first failure on, Abort's closing of the port included,
// nothing more is sent, even if another transfer has opened the port meanwhile.
class Download::Line {
  public:
    Line(SerialControl& port, const Transfer& transfer)
        : port_(port), transfer_(transfer), number_(transfer.Current()) {}

    bool Ours() const { return transfer_.Current() == number_; }

    void Send(std::string_view characters) {
        if (!failed_) {
            port_.WaitForRoom(static_cast<int>(characters.size()));
            failed_ = !Ours() || port_.Output(characters).has_value();
        }
    }

    void Drain() {
        if (!failed_) {
            port_.Drain();
        }
    }

  private:
    SerialControl& port_;
    const Transfer& transfer_;
    int number_;
    bool failed_ = false;
};

void Download::Transmit_Click() {
    if (!Confirm()) {
        return;
    }
    if (OnDownloadStarted) {
        OnDownloadStarted();
    }
    if (const Error error = transfer_.OpenPort()) {
        platform_.Ask().ShowMessage(*error, "", Buttons::Ok, Icon::Critical);
        return;
    }
    Line line(controls_.MSComm1, transfer_);
    SendImage(line, std::string(block_.TicketBuffer));
    for (int pass = 0; pass < FillPasses; ++pass) {
        line.Send(Fill);
    }
    line.Drain();
    if (line.Ours()) {
        transfer_.EndTransfer();
    }
}

void Download::DownloadButton_Click() {
    controls_.TicketList.SetFocus();
    Transmit_Click();
}

void Download::Varno_Click() {
    if (OnVarnoOpened) {
        OnVarnoOpened();
    }
}

bool Download::Confirm() {
    return platform_.Ask().ShowMessage(
               "Start TICKET BUFFER CAPTURING in Varno (parameter 78),\r\nthen click OK button.",
               "", Buttons::OkCancel, Icon::Exclamation) == Answer::Ok;
}

void Download::SendImage(Line& line, std::string_view image) {
    int shown = 0;
    for (std::size_t sent = 0; sent < image.size() && line.Ours(); ++sent) {
        if (const int percent = ProgressPercent(sent + 1); percent != shown) {
            shown = percent;
            ShowProgress(percent);
        }
        line.Send(image.substr(sent, 1));
        platform_.DoEvents();
    }
}

void Download::ShowProgress(int percent) {
    controls_.Message.SetVisible(true);
    controls_.Message.SetCaption(TransmittingText(percent));
    controls_.Message.Repaint();
}

}  // namespace varno
