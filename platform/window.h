// A window and what it is made of.
#pragma once

#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>

#include "platform/controls.h"
#include "platform/design.h"

namespace varno {

enum class WindowState { Normal = 0, Minimised = 1, Maximised = 2 };

class Window {
  public:
    Window() = default;
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;
    virtual ~Window() = default;

    // A control, timer or menu item by its name in the design table. A name that the table does
    // not hold, or that stands for another kind, is a mistake of the program and throws.
    template <class T>
    T& Get(std::string_view name) {
        if (auto* found = dynamic_cast<T*>(Find(name))) {
            return *found;
        }
        throw std::logic_error("no such control: " + std::string(name));
    }

    virtual void SetCaption(const std::string& caption) = 0;

    // Outer measures in twips (see design.h), of the normal state. A place on no screen is moved
    // onto one, and any window but the main one is moved until it is seen whole.
    virtual Place OuterPlace() const = 0;
    virtual void SetOuterPlace(const Place& place) = 0;
    virtual void SetMinimumSize(int outerWidth, int outerHeight) = 0;
    virtual WindowState State() const = 0;
    virtual void SetState(WindowState state) = 0;

    virtual bool IsShown() const = 0;
    virtual void Show() = 0;
    // Blocks the program's other windows; returns once the window is hidden or closed.
    virtual void ShowModal() = 0;
    virtual void Activate() = 0;  // brings it to the front, for the keys to go there
    virtual void Announce(const std::string& text) = 0;  // to assistive technology, to be spoken
    virtual void Hide() = 0;
    virtual void Close() = 0;  // as its close box does

    // The outer size as it is now, also while maximised, for the layout rules.
    virtual Place CurrentOuterPlace() const = 0;

    std::function<void()> OnResize;    // size or state changed, also at the first showing
    std::function<void()> OnActivate;  // shown
    std::function<void()> OnClose;     // closed by its close box, Exit or the desktop; may not veto
    // Sees each character before the control that has the focus; the control gets it all the same.
    std::function<void(char32_t)> OnKeyPress;

  protected:
    virtual Component* Find(std::string_view name) = 0;
};

}  // namespace varno
