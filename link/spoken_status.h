// What is spoken of the status line, which nobody hears change.
#pragma once

#include <string>

namespace varno {

class SpokenStatus {
  public:
    // What to say now that the line shows this, maybe nothing: a percentage once in ten, anything
    // else once, and that the transfer has ended when the line becomes empty. A download whose port
    // was closed, by Esc or with the cable, still shows percents up to its end: they are not
    // spoken.
    std::string Of(const std::string& caption, bool isPortOpen);

  private:
    std::string last_;  // of what was said, percents cut to tens
};

}  // namespace varno
