// What upload and download share: the end of a transfer, Abort, and the blinking prompt.
#pragma once

#include <functional>

#include "platform/controls.h"
#include "platform/serial_control.h"

namespace varno {

class Transfer {
  public:
    Transfer(SerialControl& msComm1, Label& message, Timer& timer1)
        : msComm1_(msComm1), message_(message), timer1_(timer1) {}

    // The commands of the idle state hold again. The port is still open, if it was.
    std::function<void()> OnTransferEnded;

    void EndTransfer();  // safe at any time
    void Abort_Click() { EndTransfer(); }
    void Form_KeyPress(char32_t character);
    void Timer1_Timer();

    // Ends a transfer because the window closes: a download that is still in its loop says and does
    // nothing more.
    void Stop();

    // Each transfer that opened the port has a number of its own. While events run another one may
    // open the port in its place; the older one finds that its number is no longer Current().
    [[nodiscard]] Error OpenPort();
    int Current() const { return current_; }

  private:
    SerialControl& msComm1_;
    Label& message_;
    Timer& timer1_;
    int current_ = 0;  // 0: none yet
};

}  // namespace varno
