#include "platform/qt/line_view_accessible.h"

#include <QAccessible>
#include <algorithm>

#include "platform/qt/line_text.h"
#include "platform/qt/text_accessible.h"
#include "platform/qt/text_area.h"

namespace varno {
namespace {

class LineViewAccessible final : public TextAccessible, public QAccessibleEditableTextInterface {
  public:
    explicit LineViewAccessible(LineView* view)
        : TextAccessible(view, QAccessible::EditableText), view_(view) {}

    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::EditableTextInterface
                   ? static_cast<QAccessibleEditableTextInterface*>(this)
                   : TextAccessible::interface_cast(type);
    }
    QAccessible::State state() const override {
        QAccessible::State state = TextAccessible::state();
        state.readOnly = false;
        state.editable = true;
        return state;
    }

    // QAccessibleTextInterface
    void selection(int /*index*/, int* start, int* end) const override {
        const QTextCursor cursor = view_->textCursor();
        *start = OffsetAt(Document(), cursor.selectionStart());
        *end = OffsetAt(Document(), cursor.selectionEnd());
    }
    int selectionCount() const override { return view_->textCursor().hasSelection() ? 1 : 0; }
    void setSelection(int /*index*/, int start, int end) override {
        view_->setTextCursor(Range(start, end));
    }
    int cursorPosition() const override {
        return OffsetAt(Document(), view_->textCursor().position());
    }
    using TextAccessible::text;
    QString text(int start, int end) const override {
        const int from = PositionAt(Document(), start);
        const int to =
            PositionAt(Document(), end) + 1;  // behind a line break whose middle is meant
        return LineText(Document(), from, to).mid(start - OffsetAt(Document(), from), end - start);
    }
    int characterCount() const override {
        return OffsetAt(Document(), Document().characterCount() - 1);
    }
    QRect characterRect(int offset) const override {
        const QRect caret = view_->cursorRect(Range(offset, offset));
        const int width = view_->fontMetrics().horizontalAdvance(text(offset, offset + 1));
        return {view_->viewport()->mapToGlobal(caret.topLeft()), QSize(width, caret.height())};
    }
    int offsetAtPoint(const QPoint& point) const override {
        const QPoint place = view_->viewport()->mapFromGlobal(point);
        return OffsetAt(Document(), view_->cursorForPosition(place).position());
    }
    void scrollToSubstring(int start, int /*end*/) override {
        const QTextCursor before = view_->textCursor();
        setCursorPosition(start);
        view_->ensureCursorVisible();
        view_->setTextCursor(before);
    }

    // QAccessibleEditableTextInterface
    void deleteText(int start, int end) override { replaceText(start, end, {}); }
    void insertText(int offset, const QString& text) override { replaceText(offset, offset, text); }
    void replaceText(int start, int end, const QString& text) override {
        QTextCursor range = Range(start, end);
        InsertLineText(range, text);
    }

  private:
    const QTextDocument& Document() const { return *view_->document(); }
    QTextCursor Range(int start, int end) const {
        QTextCursor cursor(view_->document());
        cursor.setPosition(PositionAt(Document(), start));
        cursor.setPosition(PositionAt(Document(), end), QTextCursor::KeepAnchor);
        return cursor;
    }

    LineView* view_;
};

QAccessibleInterface* MakeInterface(const QString& /*className*/, QObject* object) {
    auto* view = dynamic_cast<LineView*>(object);
    return view != nullptr ? new LineViewAccessible(view) : nullptr;
}

// As the control announces a change, the number of removed characters stands for them.
void AnnounceChange(LineView* view, int from, int removed, int added) {
    const QTextDocument& document = *view->document();
    const int offset = OffsetAt(document, from);
    const int to = std::min(from + added, document.characterCount() - 1);
    const QString text = LineText(document, from, to);
    QAccessibleTextUpdateEvent update(view, offset, QString(removed, u' '), text);
    QAccessibleTextInsertEvent insert(view, offset, text);
    QAccessibleTextRemoveEvent remove(view, offset, QString(removed, u' '));
    QAccessible::updateAccessibility(removed == 0     ? static_cast<QAccessibleEvent*>(&insert)
                                     : text.isEmpty() ? static_cast<QAccessibleEvent*>(&remove)
                                                      : &update);
}

}  // namespace

void MakeLineViewAccessible(LineView* view) {
    QAccessible::installFactory(MakeInterface);
    const QTextDocument* document = view->document();
    // Only the control's own announcement of changes hangs on this signal.
    QObject::disconnect(document, &QTextDocument::contentsChange, nullptr, nullptr);
    QObject::connect(document, &QTextDocument::contentsChange, view,
                     [view](int from, int removed, int added) {
                         if (QAccessible::isActive()) {
                             AnnounceChange(view, from, removed, added);
                         }
                     });
}

}  // namespace varno
