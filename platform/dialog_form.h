// The program's own dialogs. Each is created at its first use and afterwards only hidden, so it
// comes back as it was left; its close box ends it, and the next use starts afresh.
#pragma once

#include <functional>
#include <memory>
#include <string_view>
#include <utility>

#include "platform/platform.h"

namespace varno {

// One life of a dialog, from its creation to its close box.
class DialogForm {
  public:
    DialogForm(Platform& platform, const WindowDesign& design);
    virtual ~DialogForm() = default;
    DialogForm(const DialogForm&) = delete;
    DialogForm& operator=(const DialogForm&) = delete;

    void ShowModal() { window_->ShowModal(); }
    bool Closed() const { return closed_; }

  protected:
    Window& TheWindow() { return *window_; }
    template <class T>
    T& Get(std::string_view name) {
        return window_->Get<T>(name);
    }
    void Hide() { window_->Hide(); }
    void Unload() { closed_ = true; }

    virtual void Form_Activate() {}
    virtual void Form_Resize() {}
    virtual void Form_Unload() {}  // the close box

  private:
    std::unique_ptr<Window> window_;
    bool closed_ = false;
};

template <class Form>
class KeptDialog {
  public:
    using Make = std::function<std::unique_ptr<Form>()>;
    explicit KeptDialog(Make make) : make_(std::move(make)) {}

    Form& AsLeft() {
        if (!form_ || form_->Closed()) {
            form_.reset();
            form_ = make_();
        }
        return *form_;
    }

  private:
    Make make_;
    std::unique_ptr<Form> form_;
};

}  // namespace varno
