// The terminal window: the indicator's line, watched and typed on. It has a serial control of its
// own and takes the port over from the main window while it is shown.
#pragma once

#include "platform/dialog_form.h"

namespace varno {

class TerminalForm final : public DialogForm {
  public:
    TerminalForm(Platform& platform, SerialControl& msComm1);

  private:
    void Form_Activate() override;
    void Form_Resize() override;
    void Form_Unload() override;
    void TerminalComm_OnComm();
    void Text1_KeyPress(unsigned char character);
    void Command1_Click();
    void Command2_Click() { CloseTerminal(); }
    void CloseTerminal();
    void Report(const std::string& error);

    Platform& platform_;
    SerialControl& msComm1_;
    std::unique_ptr<SerialControl> terminalComm_;
    TextArea& text1_;
    bool takesTyping_ = false;  // until a character could not be sent
};

class Terminal {
  public:
    Terminal(Platform& platform, SerialControl& msComm1)
        : form_([&] { return std::make_unique<TerminalForm>(platform, msComm1); }) {}

    // Returns when the window is hidden, which keeps its text, or closed, which forgets it.
    void OpenTerminalWindow_Click() { form_.AsLeft().ShowModal(); }

  private:
    KeptDialog<TerminalForm> form_;
};

}  // namespace varno
