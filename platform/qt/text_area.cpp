#include "platform/qt/text_area.h"

#include <QKeyEvent>
#include <QTextBlock>
#include <algorithm>

#include "codec/windows1252.h"
#include "platform/qt/simple_controls.h"

namespace varno {
namespace {

constexpr int LongestText = 1 << 20;  // characters kept
// Dropping a little more than is due keeps the next characters from dropping again.
constexpr int DropMargin = LongestText / 16;
// Qt lays out a whole line for each character added to it. Beyond this many the text goes on in a
// line of its own, which is marked so that Text() knows.
constexpr int LongestLine = 1024;
constexpr int GoesOn = 1;  // QTextBlock::userState

void InsertInLines(QTextCursor& cursor, const QString& text) {
    for (qsizetype at = 0; at < text.size();) {
        const qsizetype room = LongestLine - cursor.positionInBlock();
        if (room <= 0 && text.at(at) != u'\r' && text.at(at) != u'\n') {
            cursor.insertBlock();
            cursor.block().setUserState(GoesOn);
            continue;
        }
        const qsizetype lineEnd = text.indexOf(u'\n', at);
        const qsizetype line = (lineEnd < 0 ? text.size() : lineEnd + 1) - at;
        qsizetype taken = std::min(line, std::max<qsizetype>(room, 1));
        if (taken + 1 == line && lineEnd >= 0) {
            taken = line;  // a line break stays in one piece
        }
        cursor.insertText(text.mid(at, taken));
        at += taken;
    }
}

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
    for (QTextBlock line = widget_->document()->begin(); line.isValid(); line = line.next()) {
        if (line.blockNumber() > 0 && line.userState() != GoesOn) {
            bytes += "\r\n";
        }
        for (const QChar character : line.text()) {
            bytes += static_cast<char>(ToWindows1252(character.unicode()));
        }
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
    // A line break may arrive in two pieces: its CR has broken the line already.
    if (endsInCr_ && bytes.front() == '\n') {
        bytes.remove_prefix(1);
    }
    endsInCr_ = !bytes.empty() && bytes.back() == '\r';
    QTextCursor end(widget_->document());
    end.movePosition(QTextCursor::End);
    end.beginEditBlock();
    InsertInLines(end, QString::fromStdU16String(FromWindows1252(bytes)));
    end.endEditBlock();
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
