// The ticket editor on QTextEdit. Positions are the program's: a line break counts as two
// characters (CR LF), where Qt counts one.
#pragma once

#include <QTextEdit>
#include <optional>

#include "platform/qt/control_base.h"
#include "platform/rich_text.h"

namespace varno {

class QtRichTextBox;

// The widget: hands keys and clicks to the program first, then carries out what it decided.
class RichTextView final : public QTextEdit {
  public:
    RichTextView(QtRichTextBox* control, QWidget* parent);

    bool showsMarks = false;

  protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
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
    KeyFate AskProgram(int keyCode, int shift) const;
    void Type(const QString& text);
    // The control's own handling of a key that the program let pass.
    void ApplyKey(QKeyEvent* event);
    // Delete or Backspace, and the plain ones that follow it.
    void ApplyRepeatedKey(QKeyEvent* event, int keyCode);
    // The toolkit's keys that go further than a character; false for any other key.
    bool ApplyReachingKey(const QKeyEvent& event);

    QtRichTextBox* control_;
};

class QtRichTextBox final : public QtControl<RichTextBox, RichTextView> {
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
    CharFormat TypingFormat() const override;
    void SetTypingFormat(const CharFormat& format) override { typing_ = {format, Now()}; }
    Colour SelColor() const override;
    bool ShowsMarks() const override { return widget_->showsMarks; }
    void SetShowsMarks(bool shows) override;
    void ShowNote(const std::string& text) override;
    void AsOneStep(const std::function<void()>& change) override;

    // Selects the word at a Qt position.
    void SelectWord(int qtPosition);
    // The marked text of the selection.
    MarkedText Selection() const;
    // Replaces the selection by marked text, as one step; the caret ends behind it.
    void Paste(const MarkedText& text);
    // Leaves a change out and says why, once the event that asked for it is done with.
    void Refuse();
    // While a key that is held down repeats itself, nothing is said.
    void SetKeyHeld(bool held) { keyHeld_ = held; }

  private:
    // The state of the editor in which a typing format was set.
    struct Moment {
        int revision;
        int position;
        int anchor;
        bool operator==(const Moment&) const = default;
    };
    struct SetFormat {
        CharFormat format;
        Moment at;
    };

    Moment Now() const;
    // Whether the editor takes the text in place of the selection.
    bool HasRoomFor(std::u16string_view text) const;

    std::optional<SetFormat> typing_;  // counts until the text, the caret or the selection changes
    bool afterStep_ = false;           // the last change was a step of undo that is complete
    bool keyHeld_ = false;
};

}  // namespace varno
