// The tutorial window: shows the document that lies beside the program.
#pragma once

#include <memory>

#include "platform/platform.h"

namespace varno {

inline constexpr const char* TutorialName = "Varno Ticket Formatter Tutorial.rtf";

const WindowDesign& TutorialDesign();

class Tutorial {
  public:
    explicit Tutorial(Platform& platform) : platform_(platform) {}

    // Returns when the window is hidden, which keeps the place in the document, or closed, which
    // makes the next showing read the document again.
    void ShowTutorial_Click();

  private:
    bool Form_Load();  // false: the document cannot be shown, which has been said
    void Form_Resize();

    Platform& platform_;
    std::unique_ptr<Window> window_;  // null until loaded
    bool closed_ = false;
};

}  // namespace varno
