// Controls in memory. They raise the events that the real ones raise, and offer the operator's
// actions as plain methods.
#pragma once

#include <algorithm>
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "platform/controls.h"

namespace varno {

template <class... Arguments>
void Raise(const std::function<void(Arguments...)>& event,
           std::type_identity_t<Arguments>... arguments) {
    if (event) event(arguments...);
}

// The control that has the focus, of all fakes together; there is one desktop.
inline Control* FocusedControl = nullptr;

template <class Interface>
class FakeControl : public Interface {
  public:
    ~FakeControl() override {
        if (HasFocus()) FocusedControl = nullptr;
    }
    bool Enabled() const override { return enabled_; }
    void SetEnabled(bool enabled) override { enabled_ = enabled; }
    bool Visible() const override { return visible_; }
    void SetVisible(bool visible) override { visible_ = visible; }
    Place GetPlace() const override { return place_; }
    void SetPlace(const Place& place) override { place_ = place; }
    void SetToolTip(const std::string& text) override { toolTip_ = text; }
    // A control that is disabled or has the focus already ignores it.
    void SetFocus() override {
        if (!Usable() || HasFocus()) return;
        FocusedControl = this;
        Raise(this->OnGotFocus);
    }

    const std::string& ToolTip() const { return toolTip_; }
    bool HasFocus() const { return FocusedControl == this; }
    bool Usable() const { return enabled_ && visible_; }

  private:
    bool enabled_ = true;
    bool visible_ = true;
    Place place_;
    std::string toolTip_;
};

class FakeLabel final : public FakeControl<Label> {
  public:
    std::string Caption() const override { return caption_; }
    void SetCaption(const std::string& caption) override { caption_ = caption; }
    void Repaint() override { painted.push_back(caption_); }

    std::vector<std::string> painted;  // what each Repaint showed

  private:
    std::string caption_;
};

class FakeButton final : public FakeControl<Button> {
  public:
    void Click() {
        if (!Usable()) return;
        SetFocus();
        Raise(OnClick);
    }
};

class FakeToggleButton final : public FakeControl<ToggleButton> {
  public:
    bool Value() const override { return on_; }
    void SetValue(bool on) override { on_ = on; }

    // The operator uses it, which toggles it unless said otherwise.
    void Use(const std::function<void()>& event, bool toggle = true) {
        SetFocus();
        on_ = on_ != toggle;
        Raise(event);
    }

  private:
    bool on_ = false;
};

class FakeTextBox final : public FakeControl<TextBox> {
  public:
    std::string Text() const override { return text_; }
    void SetText(const std::string& text) override {
        if (text_ == text) return;
        text_ = text;
        Raise(OnChange);
    }
    void SetSelStart(int) override {}

  private:
    std::string text_;
};

class FakeListBox final : public FakeControl<ListBox> {
  public:
    explicit FakeListBox(bool sorted = true) : sorted_(sorted) {}

    int ListCount() const override { return static_cast<int>(rows_.size()); }
    std::string List(int index) const override { return rows_.at(Index(index)); }
    void AddItem(const std::string& text) override {
        const auto end = rows_.end();
        const auto place = sorted_ ? std::upper_bound(rows_.begin(), end, text) : end;
        InsertItem(static_cast<int>(place - rows_.begin()), text);
    }
    void InsertItem(int index, const std::string& text) override {
        rows_.insert(rows_.begin() + index, text);
        selected_ += selected_ >= index ? 1 : 0;
    }
    void SetItem(int index, const std::string& text) override { rows_.at(Index(index)) = text; }
    void RemoveItem(int index) override {
        rows_.erase(rows_.begin() + index);
        selected_ = selected_ == index ? -1 : selected_ - (selected_ > index ? 1 : 0);
    }
    void Clear() override {
        rows_.clear();
        selected_ = -1;
    }
    int ListIndex() const override { return selected_; }
    void SetListIndex(int index) override { selected_ = index; }

    const std::vector<std::string>& Rows() const { return rows_; }
    void ClickRow(int index) {
        SetFocus();
        selected_ = index;
        Raise(OnClick);
    }
    void DoubleClickRow(int index) {
        ClickRow(index);
        Raise(OnDblClick);
    }

  private:
    static std::size_t Index(int index) { return static_cast<std::size_t>(index); }

    bool sorted_;
    std::vector<std::string> rows_;
    int selected_ = -1;
};

class FakeTimer final : public Timer {
  public:
    bool Enabled() const override { return enabled_; }
    void SetEnabled(bool enabled) override { enabled_ = enabled; }
    void SetInterval(int milliseconds) override { interval = milliseconds; }

    void Tick() {
        if (enabled_) Raise(OnTimer);
    }

    int interval = 0;

  private:
    bool enabled_ = true;
};

}  // namespace varno
