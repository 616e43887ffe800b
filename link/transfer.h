// What upload and download share: the end of a transfer, Abort, and the blinking prompt.
#pragma once

#include "link/port_session.h"
#include "platform/announce.h"
#include "platform/controls.h"

namespace varno {

class Transfer {
  public:
    Transfer(SerialControl& msComm1, Label& message, Timer& timer1, Announce announce)
        : msComm1_(msComm1), message_(message), timer1_(timer1), announce_(std::move(announce)) {}

    // Safe at any time. Announced while the port is still open, if it was.
    void EndTransfer();
    void Abort_Click() { EndTransfer(); }
    void Form_KeyPress(char32_t character);
    void Timer1_Timer();

    // Ends a transfer because the window closes: a download that is still in its loop says and does
    // nothing more.
    void Stop();

    // Starts `session`. While events run another transfer may open the port in its place; the older
    // one then finds that its session has ended.
    [[nodiscard]] Error OpenPort(PortSession& session);

  private:
    SerialControl& msComm1_;
    Label& message_;
    Timer& timer1_;
    Announce announce_;
    PortSession session_;  // the last one that was started
};

}  // namespace varno
