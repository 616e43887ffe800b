// The simulated indicator: a ticket memory, a serial line and a screen. It knows nothing of time
// and of the line's hardware.
#pragma once

#include <string>
#include <string_view>

#include "block/ticket_block.h"
#include "codec/decoder.h"
#include "simulator/capture.h"

namespace varno {

// Characters of one burst of noise.
inline constexpr int NoiseLength = 40;

class Indicator {
  public:
    // `image` is a well-formed ticket buffer image.
    Indicator(std::string image, Catalogues catalogues);

    void Transmit();         // parameter 77: the ticket buffer, then CR LF
    void StartCapture();     // parameter 78
    void PrintKey(int key);  // the ticket bound to it
    void List();
    void SendNoise();                 // characters that mean nothing
    void Say(std::string_view line);  // a line onto the screen

    void Receive(std::string_view characters);
    void Silence();  // nothing has come for a while

    // What goes out since the last call: onto the line, and as lines of UTF-8 onto the screen.
    std::string TakeTransmission();
    std::string TakeScreen();

    const std::string& Memory() const { return block_.TicketBuffer; }

  private:
    void ReportCapture();

    TicketBlock block_;
    Catalogues catalogues_;
    Capture capture_;
    std::string heard_;  // outside a capture, to be shown at the next silence
    std::string transmission_;
    std::string screen_;
    unsigned noise_ = 1;
};

}  // namespace varno
