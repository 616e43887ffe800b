// What every Qt control shares: the Control interface over one widget.
#pragma once

#include <QFocusEvent>
#include <QPointer>
#include <QWidget>

#include "platform/controls.h"
#include "platform/qt/measures.h"

namespace varno {

// Interface is Control or one derived from it; Widget the Qt class that shows it. The widget
// belongs to its parent widget, the window deletes both.
template <class Interface, class Widget>
class QtControl : public Interface {
  public:
    explicit QtControl(Widget* widget) : widget_(widget) {}

    bool Enabled() const override { return widget_->isEnabledTo(widget_->parentWidget()); }
    void SetEnabled(bool enabled) override { widget_->setEnabled(enabled); }
    bool Visible() const override { return !widget_->isHidden(); }
    void SetVisible(bool visible) override { widget_->setVisible(visible); }
    Place GetPlace() const override { return ToTwips(widget_->geometry()); }
    void SetPlace(const Place& place) override { widget_->setGeometry(ToPixels(place)); }
    void SetFocus() override { widget_->setFocus(Qt::OtherFocusReason); }
    void SetToolTip(const std::string& text) override { widget_->setToolTip(ToQt(text)); }

    Widget* Get() const { return widget_; }

  protected:
    Widget* widget_;
};

// Focus that a control really received, not a window or menu that gave it back.
inline bool IsNewFocus(const QFocusEvent& event) {
    return event.reason() != Qt::ActiveWindowFocusReason &&
           event.reason() != Qt::PopupFocusReason && event.reason() != Qt::MenuBarFocusReason;
}

}  // namespace varno
