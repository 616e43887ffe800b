// What is spoken of the status line, which nobody hears change.
#pragma once

#include <string>

namespace varno {

class SpokenStatus {
  public:
    // What to say now that the line shows this, maybe nothing: a percentage once in ten, anything
    // else once, and that the transfer has ended when the line becomes empty.
    std::string Of(const std::string& caption);

  private:
    std::string last_;  // of what was said, percents cut to tens
};

}  // namespace varno
