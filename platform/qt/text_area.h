// The terminal's text: many lines, received and typed.
#pragma once

#include <QPlainTextEdit>

#include "platform/qt/control_base.h"

namespace varno {

// Shows, takes and gives the characters of the line, and no others.
class LineView final : public QPlainTextEdit {
  public:
    LineView(TextArea* control, QWidget* parent);

  protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    QMimeData* createMimeDataFromSelection() const override;
    void insertFromMimeData(const QMimeData* source) override;

  private:
    // Sends the characters, and puts those that show into the place of the selection.
    void Type(const QString& text);
    void Insert(const QString& text);
    void StepOverJoint(int key);

    TextArea* control_;
};

class QtTextArea final : public QtControl<TextArea, LineView> {
  public:
    QtTextArea(const ControlDesign& design, QWidget* parent);

    void Clear() override;
    void Append(std::string_view bytes) override;

  private:
    void DropOldest();
};

}  // namespace varno
