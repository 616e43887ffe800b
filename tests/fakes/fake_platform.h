// All that the program runs on, in memory.
#pragma once

#include <functional>
#include <memory>
#include <stdexcept>

#include "platform/platform.h"
#include "tests/fakes/fake_controls.h"
#include "tests/fakes/fake_dialogs.h"

namespace varno {

class FakePlatform final : public Platform {
  public:
    const ProgramInfo& App() const override { throw std::logic_error("not tested here"); }
    std::unique_ptr<Window> CreateWindow(const WindowDesign&) override {
        throw std::logic_error("not tested here");
    }
    std::unique_ptr<SerialControl> CreateSerialControl(int) override {
        throw std::logic_error("not tested here");
    }
    FakeDialogs& Ask() override { return dialogs; }
    SettingsStore& Settings() override { throw std::logic_error("not tested here"); }
    void DoEvents() override { Raise(onDoEvents); }
    void Quit() override {}

    FakeDialogs dialogs;
    std::function<void()> onDoEvents;
};

}  // namespace varno
