// How far a transfer is, on a line of a terminal that is written again and again; nothing
// elsewhere.
#pragma once

#include <string>

namespace varno {

class Progress {
  public:
    ~Progress();  // ends the line
    void Show(const std::string& text);

  private:
    std::string shown_;
};

}  // namespace varno
