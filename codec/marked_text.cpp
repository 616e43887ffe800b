#include "codec/marked_text.h"

#include <algorithm>

namespace varno {

void MarkedText::Insert(std::size_t position, std::u16string_view text, const CharFormat& format) {
    text_.insert(position, text);
    formats_.insert(formats_.begin() + static_cast<std::ptrdiff_t>(position), text.size(), format);
}

void MarkedText::Append(std::u16string_view text, const CharFormat& format) {
    Insert(text_.size(), text, format);
}

void MarkedText::Reserve(std::size_t length) {
    text_.reserve(length);
    formats_.reserve(length);
}

void MarkedText::Erase(std::size_t position, std::size_t length) {
    text_.erase(position, length);
    const auto first = formats_.begin() + static_cast<std::ptrdiff_t>(position);
    const auto removed = formats_.size() - text_.size();
    formats_.erase(first, first + static_cast<std::ptrdiff_t>(removed));
}

std::size_t MarkedText::RunEnd(std::size_t position) const {
    if (position >= formats_.size()) {
        return formats_.size();
    }
    const auto first = formats_.begin() + static_cast<std::ptrdiff_t>(position);
    const auto end = std::find_if(first, formats_.end(),
                                  [&](const CharFormat& format) { return format != *first; });
    return static_cast<std::size_t>(end - formats_.begin());
}

}  // namespace varno
