#include "link/terminal.h"

#include "link/terminal_design.h"

namespace varno {

namespace {

constexpr int InBufferSize = 1024;

}  // namespace

TerminalForm::TerminalForm(Platform& platform, SerialControl& msComm1)
    : DialogForm(platform, TerminalDesign),
      platform_(platform),
      msComm1_(msComm1),
      terminalComm_(platform.CreateSerialControl(InBufferSize)),
      text1_(Get<TextArea>("Text1")) {
    terminalComm_->OnReceive = [this] { TerminalComm_OnComm(); };
    text1_.OnKeyPress = [this](unsigned char character) { Text1_KeyPress(character); };
    Get<Button>("Command1").OnClick = [this] { Command1_Click(); };
    Get<Button>("Command2").OnClick = [this] { Command2_Click(); };
}

void TerminalForm::Form_Activate() {
    platform_.DoEvents();
    if (!TheWindow().IsShown()) {
        return;  // left meanwhile
    }
    msComm1_.ClosePort();
    Error error = terminalComm_->SetCommPort(msComm1_.CommPort());
    if (!error) {
        error = terminalComm_->SetSettings(msComm1_.Settings());
    }
    if (!error) {
        error = terminalComm_->OpenPort();
    }
    takesTyping_ = !error;
    if (error) {
        Report(*error);
    }
}

void TerminalForm::TerminalComm_OnComm() {
    text1_.Append(terminalComm_->Input());
}

void TerminalForm::Text1_KeyPress(unsigned char character) {
    if (!takesTyping_) {
        return;
    }
    if (const Error error = terminalComm_->Output({reinterpret_cast<const char*>(&character), 1})) {
        takesTyping_ = false;
        terminalComm_->ClosePort();
        Report(*error);
    }
}

void TerminalForm::Command1_Click() {
    text1_.Clear();
}

void TerminalForm::Form_Resize() {
    Window& window = TheWindow();
    if (window.State() == WindowState::Minimised) {
        return;
    }
    const Place outer = window.CurrentOuterPlace();
    if (LayOutControls(window, TerminalLayout, outer.width, outer.height)) {
        return;
    }
    if (window.State() != WindowState::Normal) {
        window.SetState(WindowState::Normal);
    }
    CloseTerminal();
    // Or the next opening would end here again.
    window.SetOuterPlace({outer.left, outer.top, TerminalDesign.clientWidth + FrameWidth,
                          TerminalDesign.clientHeight + FrameHeightWithoutMenu});
}

void TerminalForm::Form_Unload() {
    terminalComm_->ClosePort();
}

void TerminalForm::CloseTerminal() {
    terminalComm_->ClosePort();
    Hide();
}

void TerminalForm::Report(const std::string& error) {
    platform_.DialogBoxes().ShowMessage(error, "Error", Buttons::Ok, Icon::Critical);
}

}  // namespace varno
