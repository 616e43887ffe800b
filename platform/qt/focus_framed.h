// A scrolling control whose frame takes the highlight colour while it has the focus, as the style
// does with one-line fields.
#pragma once

#include <QEvent>
#include <QPainter>

namespace varno {

template <class Base>
class FocusFramed : public Base {
  public:
    using Base::Base;

  protected:
    bool event(QEvent* event) override {
        const bool handled = Base::event(event);
        const QEvent::Type type = event->type();
        if (type == QEvent::Paint && this->hasFocus()) {
            QPainter painter(this);
            painter.setPen(this->palette().color(QPalette::Highlight));
            painter.drawRect(this->rect().adjusted(0, 0, -1, -1));
        } else if (type == QEvent::FocusIn || type == QEvent::FocusOut) {
            this->update();
        }
        return handled;
    }
};

}  // namespace varno
