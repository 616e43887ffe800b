// All that the program runs on, in memory.
#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <stdexcept>
#include <utility>

#include "platform/platform.h"
#include "tests/fakes/fake_dialogs.h"
#include "tests/fakes/fake_window.h"

namespace varno {

class FakePlatform final : public Platform {
  public:
    ~FakePlatform() override { EXPECT_TRUE(scripts_.empty()) << "a window never came"; }

    // The next window shown modally is operated by `script`.
    void Operate(FakeWindow::Script script) { scripts_.push_back(std::move(script)); }

    const ProgramInfo& App() const override { throw std::logic_error("not tested here"); }
    std::unique_ptr<Window> CreateWindow(const WindowDesign& design) override {
        ++windowsCreated;
        return std::make_unique<FakeWindow>(design, scripts_);
    }
    std::unique_ptr<SerialControl> CreateSerialControl(int inBufferSize) override {
        return makeSerialControl(inBufferSize);
    }
    FakeDialogs& Ask() override { return dialogs; }
    SettingsStore& Settings() override { throw std::logic_error("not tested here"); }
    void DoEvents() override { Raise(onDoEvents); }
    void Quit() override {}

    FakeDialogs dialogs;
    std::function<std::unique_ptr<SerialControl>(int)> makeSerialControl;
    std::function<void()> onDoEvents;
    int windowsCreated = 0;

  private:
    std::deque<FakeWindow::Script> scripts_;
};

}  // namespace varno
