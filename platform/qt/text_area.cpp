#include "platform/qt/text_area.h"

#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <algorithm>

#include "codec/windows1252.h"
#include "platform/qt/keys.h"
#include "platform/qt/line_text.h"
#include "platform/qt/line_view_accessible.h"
#include "platform/qt/simple_controls.h"

namespace varno {
namespace {

constexpr int LongestText = 1 << 20;  // characters kept
// Dropping a little more than is due keeps the next characters from dropping again.
constexpr int DropMargin = LongestText / 16;

char16_t AsOnTheLine(QChar character) {
    return FromWindows1252(ToWindows1252(character.unicode()));
}

// Those characters of a typed text that the line can carry. Composed letters have a code of their
// own; the code 0 is none.
QString CharactersOfTheLine(const QString& text) {
    QString kept;
    for (const QChar character : text.normalized(QString::NormalizationForm_C)) {
        if (!character.isNull() && AsOnTheLine(character) == character) {
            kept += character;
        }
    }
    return kept;
}

// What the text of a key puts into the view; its control characters have effects of their own.
QString Visible(const QString& typed) {
    if (typed == u"\r") {
        return QStringLiteral("\r\n");
    }
    QString visible = typed;
    visible.removeIf([](QChar character) { return !character.isPrint(); });
    return visible;
}

bool HasCharacter(const QKeyEvent& event) {
    const int key = event.key();
    const QString text = event.text();
    const bool movesFocus = key == Qt::Key_Tab || key == Qt::Key_Backtab;
    // Delete has a text, but is no character; Ctrl makes control characters only.
    return !text.isEmpty() && !movesFocus && key != Qt::Key_Delete &&
           (IsTyping(event) || !text.at(0).isPrint());
}

}  // namespace

LineView::LineView(TextArea* control, QWidget* parent) : QPlainTextEdit(parent), control_(control) {
    setLineWrapMode(QPlainTextEdit::NoWrap);
    setUndoRedoEnabled(false);
    setTabChangesFocus(true);
    MakeLineViewAccessible(this);
}

bool LineView::event(QEvent* event) {
    // Every key that makes a character is the line's, none is a shortcut.
    if (event->type() == QEvent::ShortcutOverride) {
        const auto& key = *static_cast<QKeyEvent*>(event);
        if (!key.text().isEmpty() && !IsCommand(key)) {
            event->accept();
            return true;
        }
    }
    return QPlainTextEdit::event(event);
}

void LineView::keyPressEvent(QKeyEvent* event) {
    if (IsCommand(*event) && !event->text().isEmpty()) {
        event->ignore();
        return;
    }
    if (!HasCharacter(*event)) {
        StepOverJoint(event->key());
        QPlainTextEdit::keyPressEvent(event);
        return;
    }
    Type(event->text());
    if (Visible(event->text()).isEmpty()) {
        StepOverJoint(event->key());
        QPlainTextEdit::keyPressEvent(event);
    }
}

// What dead keys and input methods compose comes without key events.
void LineView::inputMethodEvent(QInputMethodEvent* event) {
    if (!event->commitString().isEmpty()) {
        QInputMethodEvent finish;  // takes the text being composed off the screen
        QPlainTextEdit::inputMethodEvent(&finish);
        Type(event->commitString());
    }
    QInputMethodEvent composing(event->preeditString(), event->attributes());
    QPlainTextEdit::inputMethodEvent(&composing);
}

void LineView::Type(const QString& text) {
    const QString typed = CharactersOfTheLine(text);
    for (const QChar character : typed) {
        if (control_->OnKeyPress) {
            control_->OnKeyPress(ToWindows1252(character.unicode()));
        }
    }
    Insert(Visible(typed));
}

void LineView::Insert(const QString& text) {
    if (!text.isEmpty()) {
        QTextCursor cursor = textCursor();
        InsertLineText(cursor, text);
        setTextCursor(cursor);
        ensureCursorVisible();
    }
}

// A key that deletes takes the character behind a joint, not the joint.
void LineView::StepOverJoint(int key) {
    QTextCursor cursor = textCursor();
    const int position = cursor.position();
    if (cursor.hasSelection()) {
        return;
    }
    if (key == Qt::Key_Backspace && IsJoint(*document(), position - 1)) {
        cursor.movePosition(QTextCursor::PreviousCharacter);
    } else if (key == Qt::Key_Delete && IsJoint(*document(), position)) {
        cursor.movePosition(QTextCursor::NextCharacter);
    }
    setTextCursor(cursor);
}

QMimeData* LineView::createMimeDataFromSelection() const {
    const QTextCursor cursor = textCursor();
    auto* copied = new QMimeData;
    copied->setText(LineText(*document(), cursor.selectionStart(), cursor.selectionEnd()));
    return copied;
}

void LineView::insertFromMimeData(const QMimeData* source) {
    QString text = source->text().left(LongestText);
    std::transform(text.begin(), text.end(), text.begin(), AsOnTheLine);
    Insert(text);
}

QtTextArea::QtTextArea(const ControlDesign& design, QWidget* parent)
    : QtControl(new LineView(this, parent)) {
    ApplyDesign(design, widget_);
}

void QtTextArea::Clear() {
    QTextCursor all(widget_->document());
    all.select(QTextCursor::Document);
    all.removeSelectedText();
}

void QtTextArea::Append(std::string_view bytes) {
    // A line break may arrive in two pieces: its CR has broken the line already.
    if (bytes.starts_with('\n') && CompleteLineBreak(*widget_->document())) {
        bytes.remove_prefix(1);
    }
    QTextCursor end(widget_->document());
    end.movePosition(QTextCursor::End);
    InsertLineText(end, QString::fromStdU16String(FromWindows1252(bytes)));
    DropOldest();
    end.movePosition(QTextCursor::End);
    widget_->setTextCursor(end);
    widget_->ensureCursorVisible();
}

void QtTextArea::DropOldest() {
    const int tooMany = widget_->document()->characterCount() - LongestText;
    if (tooMany <= 0) {
        return;
    }
    QTextCursor start(widget_->document());
    start.setPosition(tooMany + DropMargin, QTextCursor::KeepAnchor);
    start.removeSelectedText();
}

}  // namespace varno
