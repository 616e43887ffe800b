#include "platform/qt/paper_sheet_accessible.h"

#include <QAccessible>
#include <algorithm>

#include "platform/qt/paper_sheet.h"
#include "platform/qt/text_accessible.h"

namespace varno {
namespace {

class PaperSheetAccessible final : public TextAccessible {
  public:
    explicit PaperSheetAccessible(PaperSheet* sheet)
        : TextAccessible(sheet, QAccessible::EditableText), sheet_(sheet) {}

    // QAccessibleTextInterface. Nothing can be selected.
    void selection(int /*index*/, int* start, int* end) const override { *start = *end = 0; }
    int selectionCount() const override { return 0; }
    void removeSelection(int /*index*/) override {}
    void setSelection(int /*index*/, int /*start*/, int /*end*/) override {}
    int cursorPosition() const override {
        return sheet_->Caret() ? sheet_->OffsetOf(*sheet_->Caret()) : 0;
    }
    // As a click on the paper does.
    void setCursorPosition(int offset) override {
        if (sheet_->OnClick) {
            sheet_->OnClick(sheet_->PlaceOf(offset));
        }
    }
    using TextAccessible::text;
    QString text(int start, int end) const override {
        return sheet_->Text().mid(start, end - start);
    }
    int characterCount() const override { return static_cast<int>(sheet_->Text().size()); }
    QRect characterRect(int offset) const override {
        const QRect cell = sheet_->CellAt(sheet_->PlaceOf(offset)).toAlignedRect();
        return {sheet_->viewport()->mapToGlobal(cell.topLeft()), cell.size()};
    }
    int offsetAtPoint(const QPoint& point) const override {
        return sheet_->OffsetOf(sheet_->PlaceAt(sheet_->viewport()->mapFromGlobal(point)));
    }
    void scrollToSubstring(int start, int /*end*/) override {
        sheet_->ScrollTo(sheet_->PlaceOf(start));
    }

  private:
    PaperSheet* sheet_;
};

QAccessibleInterface* MakeInterface(const QString& /*className*/, QObject* object) {
    auto* sheet = dynamic_cast<PaperSheet*>(object);
    return sheet != nullptr ? new PaperSheetAccessible(sheet) : nullptr;
}

// Only what differs: a screen reader reads out what it is told.
void AnnounceText(PaperSheet* sheet, const QString& before) {
    const QString& now = sheet->Text();
    const auto front = std::mismatch(before.begin(), before.end(), now.begin(), now.end());
    const auto start = static_cast<int>(front.first - before.begin());
    const auto back = std::mismatch(before.rbegin(), std::reverse_iterator(front.first),
                                    now.rbegin(), std::reverse_iterator(front.second));
    QAccessibleTextUpdateEvent update(sheet, start,
                                      QString(front.first, back.first.base() - front.first),
                                      QString(front.second, back.second.base() - front.second));
    QAccessible::updateAccessibility(&update);
}

}  // namespace

void MakePaperSheetAccessible(PaperSheet* sheet) {
    QAccessible::installFactory(MakeInterface);
    sheet->OnTextChange = [sheet](const QString& before) {
        if (QAccessible::isActive()) {
            AnnounceText(sheet, before);
        }
    };
    sheet->OnCaretMove = [sheet] {
        QAccessibleTextCursorEvent moved(sheet, sheet->OffsetOf(*sheet->Caret()));
        QAccessible::updateAccessibility(&moved);
    };
}

}  // namespace varno
