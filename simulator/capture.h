// The capturing of a ticket buffer: what the indicator does as its parameter 78.
#pragma once

#include <string>
#include <string_view>

namespace varno {

// Collects an image from ":" on and checks it. The fill behind the image is passed over.
class Capture {
  public:
    // Returns how many characters of an image that had begun are given up.
    std::size_t Start();
    // Nothing more comes: an image that has begun is incomplete.
    void End();

    // Takes what belongs to a capture and returns how many characters that was.
    std::size_t Take(std::string_view characters);

    // The outcome: an image that is right, or what is wrong. Both are empty before; taking them
    // empties them.
    std::string TakeImage();
    std::string TakeFault();

  private:
    enum class State { Off, Waiting, Collecting, PassingFill };

    void Collect(char character);
    void Finish(std::string fault);

    State state_ = State::Off;
    std::string collected_;
    std::string image_;
    std::string fault_;
};

}  // namespace varno
