#include "platform/qt/rich_text_box.h"

#include <QApplication>
#include <QPaintEvent>
#include <QTextBlock>
#include <QToolTip>
#include <algorithm>
#include <utility>

#include "codec/text_limits.h"
#include "codec/text_steps.h"
#include "platform/qt/mark_painter.h"
#include "platform/qt/marked_cursor.h"
#include "platform/qt/simple_controls.h"

namespace varno {
namespace {

// Qt hides a tool tip when the pointer leaves a control, which it does too when a tip appears under
// it. A note belongs to the caret.
class StaysUnderPointer final : public QObject {
  public:
    explicit StaysUnderPointer(QWidget* tip) : QObject(tip), tip_(*tip) {
        setObjectName(QStringLiteral("StaysUnderPointer"));
        qApp->installEventFilter(this);
    }
    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        return event->type() == QEvent::Leave && tip_.geometry().contains(QCursor::pos());
    }

  private:
    const QWidget& tip_;
};

void KeepTipUnderPointer() {
    for (QWidget* const tip : QApplication::topLevelWidgets()) {
        if (tip->inherits("QTipLabel") &&
            tip->findChild<QObject*>(QStringLiteral("StaysUnderPointer")) == nullptr) {
            new StaysUnderPointer(tip);
        }
    }
}

}  // namespace

RichTextView::RichTextView(QtRichTextBox* control, QWidget* parent)
    : QTextEdit(parent), control_(control) {
    setLineWrapMode(QTextEdit::NoWrap);
    setTabChangesFocus(true);
    setCursorWidth(2);
}

void RichTextView::paintEvent(QPaintEvent* event) {
    if (!showsMarks) {
        return QTextEdit::paintEvent(event);
    }
    const MarkPainter marks(*this, event->rect());
    marks.PaintUnderText();
    QTextEdit::paintEvent(event);
    marks.PaintOverText();
}

void RichTextView::mouseReleaseEvent(QMouseEvent* event) {
    QTextEdit::mouseReleaseEvent(event);
    if (control_->OnClick) {
        control_->OnClick();
    }
}

void RichTextView::mouseDoubleClickEvent(QMouseEvent* event) {
    QTextEdit::mouseDoubleClickEvent(event);
    control_->SelectWord(cursorForPosition(event->pos()).position());
    if (control_->OnDblClick) {
        control_->OnDblClick();
    }
}

void RichTextView::focusInEvent(QFocusEvent* event) {
    QTextEdit::focusInEvent(event);
    if (IsNewFocus(*event) && control_->OnGotFocus) {
        control_->OnGotFocus();
    }
}

QtRichTextBox::QtRichTextBox(const ControlDesign& design, QWidget* parent)
    : QtControl(new RichTextView(this, parent)) {
    ApplyDesign(design, widget_);
    UseWhitePaper(widget_, Qt::black);
    widget_->document()->setDefaultFont(varno::ToQt(design.font));
    // A caret that goes away and comes back has moved.
    QObject::connect(widget_, &QTextEdit::cursorPositionChanged, widget_, [this] {
        QToolTip::hideText();
        if (typing_ && typing_->at != Now()) {
            typing_.reset();
        }
        if (OnSelChange) {
            OnSelChange();
        }
    });
    QObject::connect(widget_, &QTextEdit::textChanged, widget_, [this] {
        if (OnChange) {
            OnChange();
        }
    });
}

QtRichTextBox::Moment QtRichTextBox::Now() const {
    const QTextCursor cursor = widget_->textCursor();
    return {widget_->document()->revision(), cursor.position(), cursor.anchor()};
}

CharFormat QtRichTextBox::TypingFormat() const {
    return typing_ && typing_->at == Now()
               ? typing_->format
               : FormatBefore(*widget_->document(), widget_->textCursor().selectionEnd());
}

MarkedText QtRichTextBox::Content() const {
    const QTextDocument& document = *widget_->document();
    return ReadMarked(document, 0, document.characterCount() - 1);
}

void QtRichTextBox::SetContent(const MarkedText& content) {
    if (content.Empty() && !HasText()) {
        return;
    }
    if (!FitsEditor(SizeOf(content.Text()))) {
        return Refuse();
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
    typing_.reset();
}

int QtRichTextBox::SelLength() const {
    return ToMarkedPosition(*widget_->document(), widget_->textCursor().selectionEnd()) -
           SelStart();
}

void QtRichTextBox::SetSelText(std::u16string_view text) {
    if (text.empty()) {
        return;
    }
    if (!HasRoomFor(text)) {
        return Refuse();
    }
    MarkedText piece;
    piece.Append(text, TypingFormat());
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
}

Colour QtRichTextBox::SelColor() const {
    const QTextCursor cursor = widget_->textCursor();
    return cursor.hasSelection() ? FormatBefore(*widget_->document(), cursor.selectionEnd()).colour
                                 : TypingFormat().colour;
}

void QtRichTextBox::SetShowsMarks(bool shows) {
    widget_->showsMarks = shows;
    widget_->viewport()->update();
}

// As rich text a long note has several lines.
void QtRichTextBox::ShowNote(const std::string& text) {
    QTextCursor front = widget_->textCursor();
    front.setPosition(front.selectionStart());
    QWidget* paper = widget_->viewport();
    const QPoint below = widget_->cursorRect(front).bottomLeft();
    const QPoint place(std::clamp(below.x(), 0, paper->width()),
                       std::clamp(below.y(), 0, paper->height()));
    QString note = "<p>" + varno::ToQt(text).toHtmlEscaped();
    // The same text would be the old note to Qt: left where it is, and hidden as the caret moved.
    note += QToolTip::text() == note ? " " : "";
    QToolTip::showText(paper->mapToGlobal(place), note, paper);
    KeepTipUnderPointer();
}

void QtRichTextBox::AsOneStep(const std::function<void()>& change) {
    QTextCursor cursor(widget_->document());
    cursor.beginEditBlock();
    change();
    cursor.endEditBlock();
    afterStep_ = true;
}

void QtRichTextBox::SelectWord(int qtPosition) {
    const QTextDocument& document = *widget_->document();
    const int place = ToMarkedPosition(document, qtPosition);
    const TextRange word = WordAt(Content(), static_cast<std::size_t>(place));
    QTextCursor cursor = widget_->textCursor();
    cursor.setPosition(ToQtPosition(document, static_cast<int>(word.start)));
    cursor.setPosition(ToQtPosition(document, static_cast<int>(word.end)), QTextCursor::KeepAnchor);
    widget_->setTextCursor(cursor);
}

MarkedText QtRichTextBox::Selection() const {
    const QTextCursor cursor = widget_->textCursor();
    return ReadMarked(*widget_->document(), cursor.selectionStart(), cursor.selectionEnd());
}

bool QtRichTextBox::HasRoomFor(std::u16string_view text) const {
    const QTextDocument& document = *widget_->document();
    const QTextCursor cursor = widget_->textCursor();
    const int replacedBreaks = document.findBlock(cursor.selectionEnd()).blockNumber() -
                               document.findBlock(cursor.selectionStart()).blockNumber();
    const int breaks = document.blockCount() - 1 - replacedBreaks;
    const int characters =
        document.characterCount() - 1 - (cursor.selectionEnd() - cursor.selectionStart()) + breaks;
    TextSize size = SizeOf(text);
    size.characters += static_cast<std::size_t>(characters);
    size.lineBreaks += static_cast<std::size_t>(breaks);
    return FitsEditor(size);
}

void QtRichTextBox::Refuse() {
    if (keyHeld_) {
        return;
    }
    const auto say = [this] {
        if (OnRefused) {
            OnRefused(TooLongForATicket);
        }
    };
    QMetaObject::invokeMethod(widget_, say, Qt::QueuedConnection);
}

void QtRichTextBox::Paste(const MarkedText& text) {
    if (text.Empty()) {
        return;
    }
    if (!HasRoomFor(text.Text())) {
        return Refuse();
    }
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
