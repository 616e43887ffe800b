// All that the program runs on, in memory.
#pragma once

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>

#include "platform/platform.h"
#include "tests/fakes/fake_dialogs.h"
#include "tests/fakes/fake_window.h"

namespace varno {

class FakeSettings final : public SettingsStore {
  public:
    std::string GetSetting(const std::string& section, const std::string& key,
                           const std::string& defaultValue) const override {
        const auto found = values.find({section, key});
        return found == values.end() ? defaultValue : found->second;
    }
    void SaveSetting(const std::string& section, const std::string& key,
                     const std::string& value) override {
        values[{section, key}] = value;
    }

    std::map<std::pair<std::string, std::string>, std::string> values;
};

class FakePlatform final : public Platform {
  public:
    ~FakePlatform() override { ExpectNoMoreDialogs(); }

    // The next window shown modally is operated by `script`.
    void Operate(FakeWindow::Script script) { scripts_.push_back(std::move(script)); }
    void ExpectNoMoreDialogs() const { EXPECT_TRUE(scripts_.empty()) << "a dialog never came"; }

    const ProgramInfo& App() const override { return info; }
    std::unique_ptr<Window> CreateWindow(const WindowDesign& design) override {
        ++windowsCreated;
        return std::make_unique<FakeWindow>(design, scripts_);
    }
    std::unique_ptr<SerialControl> CreateSerialControl(int inBufferSize) override {
        if (!makeSerialControl) {
            throw std::logic_error("this test has no serial port");
        }
        return makeSerialControl(inBufferSize);
    }
    FakeDialogs& Ask() override { return dialogs; }
    FakeSettings& Settings() override { return settings; }
    void DoEvents() override { Raise(onDoEvents); }
    void Quit() override { quit = true; }

    ProgramInfo info;
    FakeDialogs dialogs;
    FakeSettings settings;
    std::function<std::unique_ptr<SerialControl>(int)> makeSerialControl;
    std::function<void()> onDoEvents;
    int windowsCreated = 0;
    bool quit = false;

  private:
    std::deque<FakeWindow::Script> scripts_;
};

}  // namespace varno
