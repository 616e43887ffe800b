// The simulated indicator: a ticket memory, a serial line and a screen. It knows nothing of time
// and of the line's hardware.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "block/ticket_block.h"
#include "paper/effects.h"
#include "paper/paper.h"
#include "simulator/capture.h"

namespace varno {

// Characters of one burst of noise.
inline constexpr int NoiseLength = 40;

class Indicator {
  public:
    // `image` is a well-formed ticket buffer image; `effects` are those of its printer.
    Indicator(std::string image, Effects effects);

    void Transmit();         // parameter 77: the ticket buffer, then CR LF
    void StartCapture();     // parameter 78
    void PrintKey(int key);  // the ticket bound to it, onto screen and paper
    void List();
    void ListValues();                              // of the print codes
    void ChangeValue(std::string_view assignment);  // such as P012=9999
    void SendNoise();                               // characters that mean nothing
    void Say(std::string_view line);                // a line onto the screen

    void Receive(std::string_view characters);
    // Nothing has come for a while, short or long.
    void ShowHeard();
    void EndCapture();
    // What was transmitted has left the line, or went with the cable.
    void EndTransmission(bool isWhole);

    // What goes out since the last call: onto the line, as lines of UTF-8 onto the screen, and
    // onto the paper.
    std::string TakeTransmission();
    std::string TakeScreen();
    Paper TakePaper();
    // The last line on the screen that is not printed, for an indicator with one line.
    const std::string& Display() const { return display_; }

    int PaperWidth() const { return effects_.paperWidth; }  // columns
    const std::string& Memory() const { return block_.TicketBuffer; }

  private:
    void ReportCapture();

    TicketBlock block_;
    Effects effects_;
    Capture capture_;
    std::string heard_;  // outside a capture, to be shown when the line is quiet
    std::string transmission_;
    std::optional<std::size_t> transmitting_;  // so many tickets, until that has ended
    std::string screen_;
    std::string display_;
    Paper paper_;
    unsigned noise_ = 1;
};

}  // namespace varno
