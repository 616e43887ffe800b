#include "platform/qt/rich_text_box.h"

#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QTextBlock>
#include <utility>

#include "platform/qt/keys.h"
#include "platform/qt/marked_cursor.h"
#include "platform/qt/simple_controls.h"

namespace varno {
namespace {

// Alt with one of these letters is the editor's own command, not the menu's.
bool IsEditorCommand(const QKeyEvent& event) {
    return event.modifiers() == Qt::AltModifier &&
           (event.key() == Qt::Key_A || event.key() == Qt::Key_C || event.key() == Qt::Key_P);
}

}  // namespace

TicketEdit::TicketEdit(QtRichTextBox* control, QWidget* parent)
    : FocusFramed(parent), control_(control) {
    setLineWrapMode(QTextEdit::NoWrap);
    setTabChangesFocus(true);
    setCursorWidth(2);
}

bool TicketEdit::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride &&
        IsEditorCommand(*static_cast<QKeyEvent*>(event))) {
        event->accept();
        return true;
    }
    return FocusFramed::event(event);
}

void TicketEdit::keyPressEvent(QKeyEvent* event) {
    if (!IsModifierAlone(*event)) {
        HandleKey(event, KeyCodeOf(*event));
    }
}

void TicketEdit::HandleKey(QKeyEvent* event, int keyCode) {
    const KeyFate fate =
        control_->OnKeyDown ? control_->OnKeyDown(keyCode, ShiftStateOf(*event)) : KeyFate::Pass;
    event->accept();
    switch (fate) {
        case KeyFate::Drop:
            return;
        case KeyFate::Pass:
            ApplyKey(event);
            return;
        case KeyFate::PassTwice:
            control_->AsOneStep([&] {
                const int before = document()->characterCount();
                ApplyKey(event);
                if (document()->characterCount() == before) {
                    return;  // the key found nothing to delete, such as Shift and Delete
                }
                QTextCursor cursor = textCursor();
                keyCode == KeyDelete ? cursor.deleteChar() : cursor.deletePreviousChar();
                setTextCursor(cursor);
            });
            control_->SetSelStart(control_->SelStart());  // typing goes on as from there
            return;
    }
}

void TicketEdit::ApplyKey(QKeyEvent* event) {
    const bool ctrl = event->modifiers().testFlag(Qt::ControlModifier);
    const int key = event->key();
    if (ctrl && (key == Qt::Key_Return || key == Qt::Key_Enter)) {
        control_->SetSelText(LineBreak);
        return;
    }
    if (ctrl && key == Qt::Key_Space) {
        control_->SetSelText(u" ");
        return;
    }
    if (IsTyping(*event)) {
        const QString text = event->text();
        control_->SetSelText(text.toStdU16String());
        return;
    }
    // With Alt nothing is typed.
    if (event->modifiers() != Qt::AltModifier || event->text().isEmpty()) {
        QTextEdit::keyPressEvent(event);
    }
}

void TicketEdit::keyReleaseEvent(QKeyEvent* event) {
    QTextEdit::keyReleaseEvent(event);
    if (!event->isAutoRepeat() && control_->OnKeyUp) {
        control_->OnKeyUp();
    }
}

// What an input method composes arrives without key events; it is typed like a letter.
void TicketEdit::inputMethodEvent(QInputMethodEvent* event) {
    const QString composed = event->commitString();
    if (composed.isEmpty()) {
        QTextEdit::inputMethodEvent(event);
        return;
    }
    QInputMethodEvent finish;  // takes the text being composed off the screen
    QTextEdit::inputMethodEvent(&finish);
    QKeyEvent typed(QEvent::KeyPress, Qt::Key_unknown, Qt::NoModifier, composed);
    HandleKey(&typed, composed == QLatin1String(" ") ? KeySpace : KeyOther);
    if (control_->OnKeyUp) {
        control_->OnKeyUp();
    }
    event->accept();
}

void TicketEdit::mouseReleaseEvent(QMouseEvent* event) {
    QTextEdit::mouseReleaseEvent(event);
    if (control_->OnClick) {
        control_->OnClick();
    }
}

void TicketEdit::mouseDoubleClickEvent(QMouseEvent* event) {
    QTextEdit::mouseDoubleClickEvent(event);
    if (control_->OnDblClick) {
        control_->OnDblClick();
    }
}

void TicketEdit::focusInEvent(QFocusEvent* event) {
    QTextEdit::focusInEvent(event);
    if (IsNewFocus(*event) && control_->OnGotFocus) {
        control_->OnGotFocus();
    }
}

QtRichTextBox::QtRichTextBox(const ControlDesign& design, QWidget* parent)
    : QtControl(new TicketEdit(this, parent)) {
    ApplyDesign(design, widget_);
    UseWhitePaper(widget_, Qt::black);
    widget_->document()->setDefaultFont(varno::ToQt(design.font));
    QObject::connect(widget_, &QTextEdit::cursorPositionChanged, widget_,
                     [this] { TakeTypingFormatFromCaret(); });
    QObject::connect(widget_, &QTextEdit::textChanged, widget_, [this] {
        if (OnChange) {
            OnChange();
        }
    });
}

void QtRichTextBox::TakeTypingFormatFromCaret() {
    typing_ = FormatBefore(*widget_->document(), widget_->textCursor().selectionEnd());
}

MarkedText QtRichTextBox::Content() const {
    const QTextDocument& document = *widget_->document();
    return ReadMarked(document, 0, document.characterCount() - 1);
}

void QtRichTextBox::SetContent(const MarkedText& content) {
    if (content.Empty() && !HasText()) {
        return;
    }
    QTextCursor cursor(widget_->document());
    cursor.beginEditBlock();
    cursor.select(QTextCursor::Document);
    cursor.removeSelectedText();
    cursor.setBlockCharFormat(varno::ToQt(CharFormat{}));
    InsertMarked(cursor, content);
    cursor.endEditBlock();
    afterStep_ = true;
    SetSelStart(0);
}

char16_t QtRichTextBox::CharAt(int position) const {
    const QTextDocument& document = *widget_->document();
    if (position < 1) {
        return 0;
    }
    const int qtPosition = ToQtPosition(document, position - 1);
    const QTextBlock block = document.findBlock(qtPosition);
    if (qtPosition < block.position() + block.length() - 1) {
        return document.characterAt(qtPosition).unicode();
    }
    if (!block.next().isValid()) {
        return 0;
    }
    return ToMarkedPosition(document, qtPosition) == position - 1 ? u'\r' : u'\n';
}

int QtRichTextBox::SelStart() const {
    return ToMarkedPosition(*widget_->document(), widget_->textCursor().selectionStart());
}

void QtRichTextBox::SetSelStart(int position) {
    QTextCursor cursor = widget_->textCursor();
    cursor.setPosition(ToQtPosition(*widget_->document(), position));
    widget_->setTextCursor(cursor);
    TakeTypingFormatFromCaret();
}

int QtRichTextBox::SelLength() const {
    return ToMarkedPosition(*widget_->document(), widget_->textCursor().selectionEnd()) -
           SelStart();
}

void QtRichTextBox::SetSelText(std::u16string_view text) {
    if (text.empty()) {
        return;
    }
    MarkedText piece;
    piece.Append(text, typing_);
    const CharFormat format = typing_;
    QTextCursor cursor = widget_->textCursor();
    // Text typed behind a step of its own would join it: then undo would take both.
    const bool asStep = std::exchange(afterStep_, false) || cursor.hasSelection();
    if (asStep) {
        cursor.beginEditBlock();
    }
    cursor.removeSelectedText();
    InsertMarked(cursor, piece);
    if (asStep) {
        cursor.endEditBlock();
    }
    widget_->setTextCursor(cursor);
    widget_->ensureCursorVisible();
    typing_ = format;
}

Colour QtRichTextBox::SelColor() const {
    return widget_->textCursor().hasSelection()
               ? FormatBefore(*widget_->document(), widget_->textCursor().selectionEnd()).colour
               : typing_.colour;
}

void QtRichTextBox::AsOneStep(const std::function<void()>& change) {
    QTextCursor cursor(widget_->document());
    cursor.beginEditBlock();
    change();
    const CharFormat format = typing_;  // what the change left, whatever the caret reports now
    cursor.endEditBlock();
    typing_ = format;
    afterStep_ = true;
}

MarkedText QtRichTextBox::Selection() const {
    const QTextCursor cursor = widget_->textCursor();
    return ReadMarked(*widget_->document(), cursor.selectionStart(), cursor.selectionEnd());
}

void QtRichTextBox::Paste(const MarkedText& text) {
    QTextCursor cursor = widget_->textCursor();
    cursor.beginEditBlock();
    cursor.removeSelectedText();
    InsertMarked(cursor, text);
    cursor.endEditBlock();
    afterStep_ = true;
    widget_->setTextCursor(cursor);
    widget_->ensureCursorVisible();
}

}  // namespace varno
