// The keys of the ticket editor: what the toolkit does with a key that the program lets pass.
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QToolTip>
#include <algorithm>
#include <array>

#include "codec/text_steps.h"
#include "platform/qt/keys.h"
#include "platform/qt/marked_cursor.h"
#include "platform/qt/rich_text_box.h"

namespace varno {
namespace {

// Alt with one of these letters is the editor's own command, not the menu's.
bool IsEditorCommand(const QKeyEvent& event) {
    return event.modifiers() == Qt::AltModifier &&
           (event.key() == Qt::Key_A || event.key() == Qt::Key_C || event.key() == Qt::Key_P);
}

enum class KeyUse { Move, Select, Delete };

// The toolkit's own keys that go further than one character. Its Delete and Backspace are here for
// the other keys that it gives them on some desktops, such as Ctrl+D.
struct ReachingKey {
    QKeySequence::StandardKey key;
    TextStep step;
    KeyUse use;
};
constexpr std::array ReachingKeys{
    ReachingKey{QKeySequence::MoveToNextWord, NextWord, KeyUse::Move},
    ReachingKey{QKeySequence::MoveToPreviousWord, PreviousWord, KeyUse::Move},
    ReachingKey{QKeySequence::SelectNextWord, NextWord, KeyUse::Select},
    ReachingKey{QKeySequence::SelectPreviousWord, PreviousWord, KeyUse::Select},
    ReachingKey{QKeySequence::DeleteEndOfWord, NextWord, KeyUse::Delete},
    ReachingKey{QKeySequence::DeleteStartOfWord, PreviousWord, KeyUse::Delete},
    ReachingKey{QKeySequence::DeleteEndOfLine, RestOfLine, KeyUse::Delete},
    ReachingKey{QKeySequence::Delete, NextCharacter, KeyUse::Delete},
    ReachingKey{QKeySequence::Backspace, PreviousCharacter, KeyUse::Delete},
};

// Delete or Backspace as the key rules know it; they see to line ends.
bool IsPlainDeletion(const QKeyEvent& event) {
    const bool deletes = event.key() == Qt::Key_Delete || event.key() == Qt::Key_Backspace;
    return deletes && (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier |
                                            Qt::MetaModifier)) == Qt::NoModifier;
}

}  // namespace

bool RichTextView::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride &&
        IsEditorCommand(*static_cast<QKeyEvent*>(event))) {
        event->accept();
        return true;
    }
    return QTextEdit::event(event);
}

void RichTextView::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        QToolTip::hideText();
    }
    if (!IsModifierAlone(*event)) {
        control_->SetKeyHeld(event->isAutoRepeat());
        HandleKey(event, KeyCodeOf(*event));
        control_->SetKeyHeld(false);
    }
}

void RichTextView::HandleKey(QKeyEvent* event, int keyCode) {
    event->accept();
    switch (AskProgram(keyCode, ShiftStateOf(*event))) {
        case KeyFate::Drop:
            return;
        case KeyFate::Pass:
            return ApplyKey(event);
        case KeyFate::PassAndRepeat:
            control_->AsOneStep([&] { ApplyRepeatedKey(event, keyCode); });
    }
}

KeyFate RichTextView::AskProgram(int keyCode, int shift) const {
    return control_->OnKeyDown ? control_->OnKeyDown(keyCode, shift) : KeyFate::Pass;
}

void RichTextView::ApplyRepeatedKey(QKeyEvent* event, int keyCode) {
    QKeyEvent plain(QEvent::KeyPress, event->key(), Qt::NoModifier);
    // With Ctrl a word would go; but here the line end goes, which takes plain keys.
    const bool byWord =
        event->modifiers().testFlag(Qt::ControlModifier) && !textCursor().hasSelection();
    int length = document()->characterCount();
    QTextEdit::keyPressEvent(byWord ? &plain : event);
    KeyFate fate = KeyFate::PassAndRepeat;
    // A key that found nothing to delete, such as Shift and Delete, is not repeated.
    while (fate == KeyFate::PassAndRepeat && document()->characterCount() < length) {
        length = document()->characterCount();
        fate = AskProgram(keyCode, ShiftNone);
        if (fate != KeyFate::Drop) {
            QTextEdit::keyPressEvent(&plain);
        }
    }
}

bool RichTextView::ApplyReachingKey(const QKeyEvent& event) {
    const auto* const found =
        std::find_if(ReachingKeys.begin(), ReachingKeys.end(),
                     [&](const ReachingKey& key) { return event.matches(key.key); });
    if (found == ReachingKeys.end() || IsPlainDeletion(event)) {
        return false;
    }
    QTextCursor cursor = textCursor();
    if (found->use != KeyUse::Delete || !cursor.hasSelection()) {
        const QTextDocument& text = *document();
        const auto from = static_cast<std::size_t>(ToMarkedPosition(text, cursor.position()));
        cursor.setPosition(
            ToQtPosition(text, static_cast<int>(found->step(control_->Content(), from))),
            found->use == KeyUse::Move ? QTextCursor::MoveAnchor : QTextCursor::KeepAnchor);
    }
    if (found->use == KeyUse::Delete) {
        cursor.removeSelectedText();
    }
    setTextCursor(cursor);
    ensureCursorVisible();
    return true;
}

void RichTextView::ApplyKey(QKeyEvent* event) {
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
        return Type(event->text());
    }
    // With Alt nothing is typed.
    const bool types = event->modifiers() == Qt::AltModifier && !event->text().isEmpty();
    if (!types && !ApplyReachingKey(*event)) {
        QTextEdit::keyPressEvent(event);
    }
}

void RichTextView::keyReleaseEvent(QKeyEvent* event) {
    QTextEdit::keyReleaseEvent(event);
    if (!event->isAutoRepeat() && control_->OnKeyUp) {
        control_->OnKeyUp();
    }
}

// What an input method composes arrives without key events; it is typed like a letter.
void RichTextView::inputMethodEvent(QInputMethodEvent* event) {
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

}  // namespace varno
