#include "platform/rtf/header_tables.h"

#include <algorithm>
#include <utility>

#include "platform/rtf/code_pages.h"

namespace varno {

void RtfFontTable::Begin(int number) {
    indexes_[number] = static_cast<int>(fonts_.size());
    fonts_.emplace_back();
    codePages_.push_back(0);
    nameEnded_ = false;
}

void RtfFontTable::AddName(std::u16string_view text) {
    if (!nameEnded_) {
        const std::size_t end = text.find(u';');
        fonts_.back().name += text.substr(0, end);
        nameEnded_ = end != std::u16string_view::npos;
    }
}

void RtfFontTable::SetFamily(RtfFontFamily family) {
    if (!fonts_.empty()) {
        fonts_.back().family = family;
    }
}

void RtfFontTable::SetCodePage(int codePage) {
    if (!codePages_.empty()) {
        codePages_.back() = codePage;
    }
}

int RtfFontTable::IndexOf(int number) const {
    const auto found = indexes_.find(number);
    return found == indexes_.end() ? -1 : found->second;
}

int RtfFontTable::CodePageOf(int number, int otherwise) const {
    const int index = IndexOf(number);
    const int codePage = index < 0 ? 0 : codePages_[static_cast<std::size_t>(index)];
    return codePage == 0 ? otherwise : codePage;
}

bool RtfFontTable::IsSymbol(int index) const {
    return index >= 0 && fonts_[static_cast<std::size_t>(index)].name == u"Symbol";
}

void RtfColourTable::Set(int shift, int value) {
    const auto part = static_cast<Colour>(std::clamp(value, 0, 255));
    next_ = (next_.value_or(0) & ~(Colour{0xFF} << shift)) | (part << shift);
}

void RtfColourTable::AddText(std::string_view text) {
    for (auto n = std::count(text.begin(), text.end(), ';'); n > 0; --n) {
        colours_.push_back(std::exchange(next_, std::nullopt));
    }
}

std::optional<Colour> RtfColourTable::At(int number) const {
    const auto index = static_cast<std::size_t>(number);
    return number >= 0 && index < colours_.size() ? colours_[index] : std::nullopt;
}

}  // namespace varno
