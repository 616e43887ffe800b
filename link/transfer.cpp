#include "link/transfer.h"

namespace varno {

namespace {

constexpr int ShownMilliseconds = 1500;
constexpr int HiddenMilliseconds = 500;

}  // namespace

void Transfer::EndTransfer() {
    message_.SetCaption("");
    announce_(CommandEvent::TransferEnded);
    msComm1_.ClosePort();
}

void Transfer::Form_KeyPress(char32_t character) {
    if (character == KeyEscape) {
        Abort_Click();
    }
}

void Transfer::Timer1_Timer() {
    const bool shown = !message_.Caption().empty() && !message_.Visible();
    message_.SetVisible(shown);
    timer1_.SetInterval(shown ? ShownMilliseconds : HiddenMilliseconds);
}

void Transfer::Stop() {
    session_.End();
    EndTransfer();
}

Error Transfer::OpenPort(PortSession& session) {
    Error error = msComm1_.OpenPort();
    if (!error) {
        session_.End();
        session = session_ = PortSession(msComm1_);
    }
    return error;
}

}  // namespace varno
