// The terminal window: the indicator's line, watched and typed on. It has a serial control of its
// own and takes the port over from the main window while it is shown.
#pragma once

#include <memory>

#include "platform/platform.h"

namespace varno {

class Terminal {
  public:
    Terminal(Platform& platform, SerialControl& msComm1) : platform_(platform), msComm1_(msComm1) {}

    // Returns when the window is hidden, which keeps its text, or closed, which forgets it.
    void OpenTerminalWindow_Click();

    void Form_Activate();
    void Form_Resize();
    void TerminalComm_OnComm();
    void Text1_KeyPress(unsigned char character);
    void Command1_Click();
    void Command2_Click() { CloseTerminal(); }
    void CloseTerminal();

  private:
    void Load();
    void Report(const std::string& error);

    Platform& platform_;
    SerialControl& msComm1_;
    std::unique_ptr<SerialControl> terminalComm_;
    std::unique_ptr<Window> window_;  // null until loaded
    TextArea* text1_ = nullptr;
    bool takesTyping_ = false;  // until a character could not be sent
    bool closed_ = false;       // by the close box: to be unloaded
};

}  // namespace varno
