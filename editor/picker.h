// The dialogs that a code is chosen in. Each is created at its first use and afterwards only
// hidden, so it comes back as it was left; its close box ends it, and the next use starts afresh.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/platform.h"

namespace varno {

// One life of a dialog, from its creation to its close box.
class PickerForm {
  public:
    PickerForm(Platform& platform, const WindowDesign& design);
    virtual ~PickerForm() = default;
    PickerForm(const PickerForm&) = delete;
    PickerForm& operator=(const PickerForm&) = delete;

    // Shows the dialog and returns its PickResult: the choice, or nothing when it was cancelled
    // or closed.
    std::u16string Show();
    bool Closed() const { return closed_; }

  protected:
    template <class T>
    T& Get(std::string_view name) {
        return window_->Get<T>(name);
    }

    virtual void Form_Activate() = 0;
    void Leave(const std::u16string& pickResult);

  private:
    std::unique_ptr<Window> window_;
    std::u16string pickResult_;
    bool closed_ = false;
};

class Picker {
  public:
    using Make = std::function<std::unique_ptr<PickerForm>()>;
    explicit Picker(Make make) : make_(std::move(make)) {}

    std::u16string Pick();

  private:
    Make make_;
    std::unique_ptr<PickerForm> form_;
};

}  // namespace varno
