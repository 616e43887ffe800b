#include "platform/qt/document_view_accessible.h"

#include <QAbstractTextDocumentLayout>
#include <QAccessible>
#include <QList>
#include <QScrollBar>
#include <QTextBlock>

#include "platform/qt/accessibility_bridge.h"
#include "platform/qt/text_accessible.h"

namespace varno {
namespace {

constexpr const char* IsDocument = "accessibleDocument";

// In a document's text, around the cells of a table.
constexpr char16_t FrameBegins = 0xFDD0;
constexpr char16_t FrameEnds = 0xFDD1;

QRect OnScreen(const QTextBrowser& view, const QRectF& place) {
    const QPoint scrolled(view.horizontalScrollBar()->value(), view.verticalScrollBar()->value());
    const QRect inView = place.toAlignedRect().translated(-scrolled);
    return {view.viewport()->mapToGlobal(inView.topLeft()), inView.size()};
}

class HeadingAccessible final : public QAccessibleInterface {
  public:
    HeadingAccessible(QTextBrowser* view, const QTextBlock& block) : view_(view), block_(block) {}

    bool isValid() const override { return block_.isValid(); }
    QObject* object() const override { return nullptr; }
    QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override { return nullptr; }
    QAccessibleInterface* parent() const override {
        return QAccessible::queryAccessibleInterface(view_);
    }
    QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface* /*child*/) const override { return -1; }
    QString text(QAccessible::Text which) const override {
        return which == QAccessible::Name ? block_.text()
               : which == HeadingLevel    ? QString::number(block_.blockFormat().headingLevel())
                                          : QString();
    }
    void setText(QAccessible::Text /*which*/, const QString& /*text*/) override {}
    QRect rect() const override {
        return OnScreen(*view_, view_->document()->documentLayout()->blockBoundingRect(block_));
    }
    QAccessible::Role role() const override { return QAccessible::Heading; }
    QAccessible::State state() const override {
        QAccessible::State state;
        state.readOnly = true;
        state.offscreen = !view_->isVisible();
        return state;
    }

  private:
    QTextBrowser* view_;
    QTextBlock block_;
};

// Places count the characters of the document; a paragraph ends with one.
class DocumentViewAccessible final : public TextAccessible {
  public:
    explicit DocumentViewAccessible(QTextBrowser* view)
        : TextAccessible(view, QAccessible::Document), view_(view) {}
    ~DocumentViewAccessible() override {
        for (const QAccessible::Id heading : headings_) {
            QAccessible::deleteAccessibleInterface(heading);
        }
    }

    int childCount() const override { return static_cast<int>(Headings().size()); }
    QAccessibleInterface* child(int index) const override {
        return QAccessible::accessibleInterface(Headings().value(index));
    }
    QAccessibleInterface* childAt(int x, int y) const override {
        for (int i = 0; i < childCount(); ++i) {
            if (child(i)->rect().contains(x, y)) {
                return child(i);
            }
        }
        return nullptr;
    }
    int indexOfChild(const QAccessibleInterface* heading) const override {
        for (int i = 0; i < childCount(); ++i) {
            if (child(i) == heading) {
                return i;
            }
        }
        return -1;
    }

    // QAccessibleTextInterface
    void selection(int /*index*/, int* start, int* end) const override {
        *start = view_->textCursor().selectionStart();
        *end = view_->textCursor().selectionEnd();
    }
    int selectionCount() const override { return view_->textCursor().hasSelection() ? 1 : 0; }
    void setSelection(int /*index*/, int start, int end) override {
        view_->setTextCursor(Range(start, end));
    }
    int cursorPosition() const override { return view_->textCursor().position(); }
    using TextAccessible::text;
    QString text(int start, int end) const override {
        QString text = Range(start, end).selectedText();
        for (const QChar separator : {QChar(QChar::ParagraphSeparator), QChar(QChar::LineSeparator),
                                      QChar(FrameBegins), QChar(FrameEnds)}) {
            text.replace(separator, u'\n');
        }
        return text;
    }
    int characterCount() const override { return view_->document()->characterCount() - 1; }
    QRect characterRect(int offset) const override {
        const QRect place = view_->cursorRect(Range(offset, offset));
        return {view_->viewport()->mapToGlobal(place.topLeft()), place.size()};
    }
    int offsetAtPoint(const QPoint& point) const override {
        return view_->cursorForPosition(view_->viewport()->mapFromGlobal(point)).position();
    }
    void scrollToSubstring(int start, int /*end*/) override {
        setCursorPosition(start);
        view_->ensureCursorVisible();
    }

  private:
    QTextCursor Range(int start, int end) const {
        QTextCursor cursor(view_->document());
        cursor.setPosition(qBound(0, start, characterCount()));
        cursor.setPosition(qBound(0, end, characterCount()), QTextCursor::KeepAnchor);
        return cursor;
    }

    // The document has been read by the time somebody asks.
    const QList<QAccessible::Id>& Headings() const {
        if (!headings_.isEmpty()) {
            return headings_;
        }
        for (QTextBlock block = view_->document()->begin(); block.isValid(); block = block.next()) {
            if (block.blockFormat().headingLevel() > 0) {
                headings_ +=
                    QAccessible::registerAccessibleInterface(new HeadingAccessible(view_, block));
            }
        }
        return headings_;
    }

    QTextBrowser* view_;
    mutable QList<QAccessible::Id> headings_;
};

QAccessibleInterface* MakeInterface(const QString& /*className*/, QObject* object) {
    auto* view = qobject_cast<QTextBrowser*>(object);
    return view != nullptr && view->property(IsDocument).toBool() ? new DocumentViewAccessible(view)
                                                                  : nullptr;
}

}  // namespace

void MakeDocumentViewAccessible(QTextBrowser* view) {
    view->setProperty(IsDocument, true);
    QAccessible::installFactory(MakeInterface);
}

}  // namespace varno
