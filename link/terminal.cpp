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
        TerminalComm_.reset();
    }
}

void Terminal::Load() {
    closed_ = false;
    TerminalComm_ = platform_.CreateSerialControl(InBufferSize);
    TerminalComm_->OnReceive = [this] { TerminalComm_OnComm(); };
    window_ = platform_.CreateWindow(TerminalDesign);
    window_->OnActivate = [this] { Form_Activate(); };
    window_->OnResize = [this] { Form_Resize(); };
    window_->OnClose = [this] {
        closed_ = true;
        TerminalComm_->ClosePort();
    };
    Text1_ = &window_->Get<TextArea>("Text1");
    Text1_->OnKeyPress = [this](unsigned char character) { Text1_KeyPress(character); };
    window_->Get<Button>("Command1").OnClick = [this] { Command1_Click(); };
    window_->Get<Button>("Command2").OnClick = [this] { Command2_Click(); };
}

void Terminal::Form_Activate() {
    platform_.DoEvents();
    if (closed_) {
        return;
    }
    MSComm1_.ClosePort();
    Error error = TerminalComm_->SetCommPort(MSComm1_.CommPort());
    if (!error) {
        error = TerminalComm_->SetSettings(MSComm1_.Settings());
    }
    if (!error) {
        error = TerminalComm_->OpenPort();
    }
    takesTyping_ = !error;
    if (error) {
        Report(*error);
    }
}

void Terminal::TerminalComm_OnComm() {
    Text1_->Append(TerminalComm_->Input());
}

void Terminal::Text1_KeyPress(unsigned char character) {
    if (!takesTyping_) {
        return;
    }
    if (const Error error = TerminalComm_->Output({reinterpret_cast<const char*>(&character), 1})) {
        takesTyping_ = false;
        TerminalComm_->ClosePort();
        Report(*error);
    }
}

void Terminal::Command1_Click() {
    Text1_->Clear();
}

void Terminal::Form_Resize() {
    if (window_->State() == WindowState::Minimised) {
        return;
    }
    const Place outer = window_->CurrentOuterPlace();
    if (const auto layout = LayOutTerminal(outer.width, outer.height)) {
        Text1_->SetPlace(layout->text);
        window_->Get<Button>("Command1").SetPlace(layout->clear);
        window_->Get<Button>("Command2").SetPlace(layout->exit);
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
    TerminalComm_->ClosePort();
    window_->Hide();
}

void Terminal::Report(const std::string& error) {
    platform_.Ask().ShowMessage(error, "Error", Buttons::Ok, Icon::Critical);
}

}  // namespace varno
