#include "platform/qt/text_area.h"

#include <QKeyEvent>
#include <QTextBlock>

#include "codec/windows1252.h"
#include "platform/qt/simple_controls.h"

namespace varno {
namespace {

constexpr int LongestText = 1 << 20;  // characters kept
// Dropping a little more than is due keeps the next characters from dropping again.
constexpr int DropMargin = LongestText / 16;

}  // namespace

LineView::LineView(TextArea* control, QWidget* parent) : FocusFramed(parent), control_(control) {
    setLineWrapMode(QPlainTextEdit::NoWrap);
    setUndoRedoEnabled(false);
    setTabChangesFocus(true);
}

bool LineView::event(QEvent* event) {
    // Every key that makes a character is the line's, none is a shortcut.
    if (event->type() == QEvent::ShortcutOverride &&
        !static_cast<QKeyEvent*>(event)->text().isEmpty() &&
        !static_cast<QKeyEvent*>(event)->modifiers().testFlag(Qt::AltModifier)) {
        event->accept();
        return true;
    }
    return FocusFramed::event(event);
}

void LineView::keyPressEvent(QKeyEvent* event) {
    const QString text = event->text();
    const bool movesFocus = event->key() == Qt::Key_Tab || event->key() == Qt::Key_Backtab;
    const bool deletes = event->key() == Qt::Key_Delete;  // has a character, but sends none
    if (!text.isEmpty() && !movesFocus && !deletes && control_->OnKeyPress) {
        for (const QChar character : text) {
            const unsigned char code = ToWindows1252(character.unicode());
            if (code != 0) {
                control_->OnKeyPress(code);
            }
        }
    }
    QPlainTextEdit::keyPressEvent(event);
}

QtTextArea::QtTextArea(const ControlDesign& design, QWidget* parent)
    : QtControl(new LineView(this, parent)) {
    ApplyDesign(design, widget_);
}

std::string QtTextArea::Text() const {
    std::string bytes;
    for (const QChar character : widget_->toPlainText()) {
        if (character == u'\n') {
            bytes += '\r';
        }
        bytes += static_cast<char>(ToWindows1252(character.unicode()));
    }
    return bytes;
}

void QtTextArea::Clear() {
    widget_->clear();
}

void QtTextArea::Append(std::string_view bytes) {
    if (bytes.empty()) {
        return;
    }
    QTextCursor end(widget_->document());
    end.movePosition(QTextCursor::End);
    // A line break may arrive in two pieces: the CR that waits belongs to this LF.
    if (bytes.front() == '\n' && end.position() > 0 &&
        widget_->document()->characterAt(end.position() - 1) == u'\r') {
        end.deletePreviousChar();
    }
    end.insertText(QString::fromStdU16String(FromWindows1252(bytes)));
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
