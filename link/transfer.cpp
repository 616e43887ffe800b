#include "link/transfer.h"

namespace varno {

namespace {

constexpr int ShownMilliseconds = 1500;
constexpr int HiddenMilliseconds = 500;

}  // namespace

void Transfer::EndTransfer() {
    Message_.SetCaption("");
    if (OnTransferEnded) {
        OnTransferEnded();
    }
    MSComm1_.ClosePort();
}

void Transfer::Form_KeyPress(char32_t character) {
    if (character == KeyEscape) {
        Abort_Click();
    }
}

void Transfer::Timer1_Timer() {
    const bool shown = !Message_.Caption().empty() && !Message_.Visible();
    Message_.SetVisible(shown);
    Timer1_.SetInterval(shown ? ShownMilliseconds : HiddenMilliseconds);
}

void Transfer::Stop() {
    ++current_;
    EndTransfer();
}

Error Transfer::OpenPort() {
    Error error = MSComm1_.OpenPort();
    if (!error) {
        ++current_;
    }
    return error;
}

}  // namespace varno
