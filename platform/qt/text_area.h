// The terminal's text: many lines, received and typed.
#pragma once

#include <QPlainTextEdit>

#include "platform/qt/control_base.h"
#include "platform/qt/focus_framed.h"

namespace varno {

class LineView final : public FocusFramed<QPlainTextEdit> {
  public:
    LineView(TextArea* control, QWidget* parent);

  protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    TextArea* control_;
};

class QtTextArea final : public QtControl<TextArea, LineView> {
  public:
    QtTextArea(const ControlDesign& design, QWidget* parent);

    std::string Text() const override;
    void Clear() override;
    void Append(std::string_view bytes) override;

  private:
    void DropOldest();

    bool endsInCr_ = false;  // the text appended last
};

}  // namespace varno
