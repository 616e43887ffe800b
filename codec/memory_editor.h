// Marked text with a caret, in memory: what the decoder writes into, and what tests and the
// command line use in place of a window.
#pragma once

#include <optional>

#include "codec/marked_editor.h"

namespace varno {

class MemoryEditor final : public MarkedEditor {
  public:
    MemoryEditor() = default;
    explicit MemoryEditor(MarkedText content);

    MarkedText Content() const override { return content_; }
    void SetContent(const MarkedText& content) override;
    bool HasText() const override { return !content_.Empty(); }
    char16_t CharAt(int position) const override;
    int SelStart() const override { return start_; }
    void SetSelStart(int position) override;
    int SelLength() const override { return length_; }
    void SetSelText(std::u16string_view text) override;
    CharFormat TypingFormat() const override {
        return typing_.value_or(FormatBefore(start_ + length_));
    }
    void SetTypingFormat(const CharFormat& format) override { typing_ = format; }
    Colour SelColor() const override;

    void Select(int start, int length);
    const MarkedText& Marked() const { return content_; }  // without a copy

  private:
    CharFormat FormatBefore(int position) const;

    MarkedText content_;
    int start_ = 0;
    int length_ = 0;
    std::optional<CharFormat> typing_;  // set since the caret was placed or the text changed
};

}  // namespace varno
