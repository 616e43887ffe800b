// The ticket editor on QTextEdit. Positions are the program's: a line break counts as two
// characters (CR LF), where Qt counts one.
#pragma once

#include <QTextEdit>

#include "platform/qt/control_base.h"
#include "platform/qt/focus_framed.h"
#include "platform/rich_text.h"

namespace varno {

class QtRichTextBox;

// The widget: hands keys and clicks to the program first, then carries out what it decided.
class TicketEdit final : public FocusFramed<QTextEdit> {
  public:
    TicketEdit(QtRichTextBox* control, QWidget* parent);

  protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    QMimeData* createMimeDataFromSelection() const override;
    bool canInsertFromMimeData(const QMimeData* source) const override;
    void insertFromMimeData(const QMimeData* source) override;

  private:
    void HandleKey(QKeyEvent* event, int keyCode);
    // The control's own handling of a key that the program let pass.
    void ApplyKey(QKeyEvent* event);

    QtRichTextBox* control_;
};

class QtRichTextBox final : public QtControl<RichTextBox, TicketEdit> {
  public:
    QtRichTextBox(const ControlDesign& design, QWidget* parent);

    MarkedText Content() const override;
    void SetContent(const MarkedText& content) override;
    bool HasText() const override { return !widget_->document()->isEmpty(); }
    char16_t CharAt(int position) const override;
    int SelStart() const override;
    void SetSelStart(int position) override;
    int SelLength() const override;
    void SetSelText(std::u16string_view text) override;
    CharFormat TypingFormat() const override { return typing_; }
    void SetTypingFormat(const CharFormat& format) override { typing_ = format; }
    Colour SelColor() const override;
    void AsOneStep(const std::function<void()>& change) override;

    // The marked text of the selection.
    MarkedText Selection() const;
    // Replaces the selection by marked text, as one step; the caret ends behind it.
    void Paste(const MarkedText& text);

  private:
    void TakeTypingFormatFromCaret();

    CharFormat typing_;
    bool afterStep_ = false;  // the last change was a step of undo that is complete
};

}  // namespace varno
