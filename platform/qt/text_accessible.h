// What assistive technology reads as text of a control, as far as it is the same for all that have
// an interface of their own: many lines without attributes, one selection at most.
#pragma once

#include <QAccessibleWidget>

namespace varno {

class TextAccessible : public QAccessibleWidget, public QAccessibleTextInterface {
  public:
    using QAccessibleWidget::QAccessibleWidget;

    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::TextInterface ? static_cast<QAccessibleTextInterface*>(this)
                                                  : QAccessibleWidget::interface_cast(type);
    }
    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.readOnly = true;
        state.multiLine = true;
        return state;
    }
    using QAccessibleTextInterface::text;
    QString text(QAccessible::Text which) const override {
        return which == QAccessible::Value ? text(0, characterCount())
                                           : QAccessibleWidget::text(which);
    }

    void addSelection(int start, int end) override { setSelection(0, start, end); }
    void removeSelection(int /*index*/) override { setCursorPosition(cursorPosition()); }
    void setCursorPosition(int offset) override { setSelection(0, offset, offset); }
    QString attributes(int /*offset*/, int* start, int* end) const override {
        *start = 0;
        *end = characterCount();
        return {};
    }
};

}  // namespace varno
