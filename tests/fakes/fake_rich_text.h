// The ticket editor in memory.
#pragma once

#include <functional>
#include <string_view>
#include <vector>

#include "codec/memory_editor.h"
#include "platform/rich_text.h"
#include "tests/fakes/fake_controls.h"

namespace varno {

class FakeRichTextBox final : public FakeControl<RichTextBox> {
  public:
    MarkedText Content() const override { return text_.Content(); }
    void SetContent(const MarkedText& content) override {
        AsOneStep([&] { text_.SetContent(content); });
    }
    bool HasText() const override { return text_.HasText(); }
    char16_t CharAt(int position) const override { return text_.CharAt(position); }
    int SelStart() const override { return text_.SelStart(); }
    void SetSelStart(int position) override { text_.SetSelStart(position); }
    int SelLength() const override { return text_.SelLength(); }
    void SetSelText(std::u16string_view text) override {
        AsOneStep([&] { text_.SetSelText(text); });
    }
    CharFormat TypingFormat() const override { return text_.TypingFormat(); }
    void SetTypingFormat(const CharFormat& format) override { text_.SetTypingFormat(format); }
    Colour SelColor() const override { return text_.SelColor(); }
    // A step within a step is part of it; one that changes nothing is none.
    void AsOneStep(const std::function<void()>& change) override {
        const MarkedText before = text_.Marked();
        ++open_;
        change();
        --open_;
        if (open_ > 0 || text_.Marked() == before) return;
        steps_.push_back(before);
        Raise(OnChange);
    }

    const MarkedText& Marked() const { return text_.Marked(); }
    void Select(int start, int length) { text_.Select(start, length); }
    void Undo() {
        if (steps_.empty()) return;
        text_.SetContent(steps_.back());
        steps_.pop_back();
        Raise(OnChange);
    }

  private:
    MemoryEditor text_;
    std::vector<MarkedText> steps_;
    int open_ = 0;  // steps under way
};

}  // namespace varno
