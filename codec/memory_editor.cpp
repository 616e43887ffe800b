#include "codec/memory_editor.h"

#include <algorithm>
#include <utility>

namespace varno {

MemoryEditor::MemoryEditor(MarkedText content) : content_(std::move(content)) {}

void MemoryEditor::SetContent(const MarkedText& content) {
    content_ = content;
    SetSelStart(0);
}

char16_t MemoryEditor::CharAt(int position) const {
    const bool inside = position >= 1 && static_cast<std::size_t>(position) <= content_.Length();
    return inside ? content_.At(static_cast<std::size_t>(position - 1)) : u'\0';
}

void MemoryEditor::SetSelStart(int position) {
    Select(position, 0);
}

void MemoryEditor::Select(int start, int length) {
    const int end = static_cast<int>(content_.Length());
    start_ = std::clamp(start, 0, end);
    length_ = std::clamp(length, 0, end - start_);
    typing_.reset();
}

void MemoryEditor::SetSelText(std::u16string_view text) {
    if (text.empty()) {
        return;
    }
    const CharFormat format = TypingFormat();
    const auto start = static_cast<std::size_t>(start_);
    content_.Erase(start, static_cast<std::size_t>(length_));
    content_.Insert(start, text, format);
    start_ += static_cast<int>(text.size());
    length_ = 0;
    typing_.reset();
}

Colour MemoryEditor::SelColor() const {
    return length_ > 0 ? FormatBefore(start_ + length_).colour : TypingFormat().colour;
}

CharFormat MemoryEditor::FormatBefore(int position) const {
    return position > 0 ? content_.FormatAt(static_cast<std::size_t>(position - 1)) : CharFormat{};
}

}  // namespace varno
