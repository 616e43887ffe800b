// How far a transfer is, on a line of a terminal that is written again and again; nothing
// elsewhere.
#pragma once

#include <string>

namespace varno {

class Progress {
  public:
    ~Progress() { End(); }
    void Show(const std::string& text);
    void End();  // of the line: what is said next begins another

  private:
    std::string shown_;
};

}  // namespace varno
