#include "link/terminal.h"

#include "link/terminal_design.h"

namespace varno {

namespace {

constexpr int InBufferSize = 1024;

}  // namespace

void Terminal::OpenTerminalWindow_Click() {
    if (!window_) {
        Load();
    }
    window_->ShowModal();
    if (closed_) {
        window_.reset();
        terminalComm_.reset();
    }
}

void Terminal::Load() {
    closed_ = false;
    terminalComm_ = platform_.CreateSerialControl(InBufferSize);
    terminalComm_->OnReceive = [this] { TerminalComm_OnComm(); };
    window_ = platform_.CreateWindow(TerminalDesign);
    window_->OnActivate = [this] { Form_Activate(); };
    window_->OnResize = [this] { Form_Resize(); };
    window_->OnClose = [this] {
        closed_ = true;
        terminalComm_->ClosePort();
    };
    text1_ = &window_->Get<TextArea>("Text1");
    text1_->OnKeyPress = [this](unsigned char character) { Text1_KeyPress(character); };
    window_->Get<Button>("Command1").OnClick = [this] { Command1_Click(); };
    window_->Get<Button>("Command2").OnClick = [this] { Command2_Click(); };
}

void Terminal::Form_Activate() {
    platform_.DoEvents();
    if (!window_->IsShown()) {
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

void Terminal::TerminalComm_OnComm() {
    text1_->Append(terminalComm_->Input());
}

void Terminal::Text1_KeyPress(unsigned char character) {
    if (!takesTyping_) {
        return;
    }
    if (const Error error = terminalComm_->Output({reinterpret_cast<const char*>(&character), 1})) {
        takesTyping_ = false;
        terminalComm_->ClosePort();
        Report(*error);
    }
}

void Terminal::Command1_Click() {
    text1_->Clear();
}

void Terminal::Form_Resize() {
    if (window_->State() == WindowState::Minimised) {
        return;
    }
    const Place outer = window_->CurrentOuterPlace();
    if (LayOutControls(*window_, TerminalLayout, outer.width, outer.height)) {
        return;
    }
    if (window_->State() != WindowState::Normal) {
        window_->SetState(WindowState::Normal);
    }
    CloseTerminal();
    // Or the next opening would end here again.
    window_->SetOuterPlace({outer.left, outer.top, TerminalDesign.clientWidth + FrameWidth,
                            TerminalDesign.clientHeight + FrameHeightWithoutMenu});
}

void Terminal::CloseTerminal() {
    terminalComm_->ClosePort();
    window_->Hide();
}

void Terminal::Report(const std::string& error) {
    platform_.DialogBoxes().ShowMessage(error, "Error", Buttons::Ok, Icon::Critical);
}

}  // namespace varno
