// A window in memory, built from its design table. A modal showing is operated by the script that
// the test queued for it, and has to be hidden or closed by the end of it.
#pragma once

#include <gtest/gtest.h>

#include <deque>
#include <map>
#include <memory>
#include <span>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "platform/window.h"
#include "tests/fakes/fake_controls.h"

namespace varno {

class FakeSimpleCombo final : public FakeField<SimpleCombo> {
  public:
    explicit FakeSimpleCombo(bool sorted) : sorted_(sorted) {}

    void AddItems(std::span<const std::string> items) override {
        entries_.insert(entries_.end(), items.begin(), items.end());
        if (sorted_) std::stable_sort(entries_.begin(), entries_.end());
    }
    int ListCount() const override { return static_cast<int>(entries_.size()); }
    std::string List(int index) const override {
        return entries_.at(static_cast<std::size_t>(index));
    }

    const std::vector<std::string>& Entries() const { return entries_; }
    // Replaces the text, key by key.
    void Type(const std::string& text) {
        SetFocus();
        SetText("");
        for (const char c : text) SetText(text_ + c);
    }
    void ClickEntry(int index) {
        SetFocus();
        text_ = List(index);
        Raise(OnClick);
    }
    void DoubleClickEntry(int index) {
        ClickEntry(index);
        Raise(OnDblClick);
    }

  private:
    bool sorted_;
    std::vector<std::string> entries_;
};

class FakeWindow final : public Window {
  public:
    using Script = std::function<void(FakeWindow&)>;

    FakeWindow(const WindowDesign& design, std::deque<Script>& scripts)
        : scripts_(scripts), caption_(design.caption) {
        for (const ControlDesign& control : design.controls) {
            auto& made = controls_[std::string(control.name)];
            made = Make(control);
            made->SetEnabled(control.enabled);
            made->SetVisible(control.visible);
        }
    }

    std::string Caption() const override { return caption_; }
    void SetCaption(const std::string& caption) override { caption_ = caption; }
    Place OuterPlace() const override { return place_; }
    Place CurrentOuterPlace() const override { return place_; }
    void SetOuterPlace(const Place& place) override {
        place_ = place;
        Raise(OnResize);
    }
    void SetMinimumSize(int, int) override {}
    WindowState State() const override { return WindowState::Normal; }
    void SetState(WindowState) override {}

    void Show() override {
        shown_ = true;
        Raise(OnActivate);
    }
    void ShowModal() override {
        Show();
        if (scripts_.empty()) {
            ADD_FAILURE() << "unexpected: the window " << caption_;
            return Close();
        }
        const Script operate = std::move(scripts_.front());
        scripts_.pop_front();
        operate(*this);
        EXPECT_FALSE(std::exchange(shown_, false)) << "left open: " << caption_;
    }
    void Hide() override { shown_ = false; }
    void Close() override {
        shown_ = false;
        Raise(OnClose);
    }

    bool IsShown() const { return shown_; }

  protected:
    Component* Find(std::string_view name) override {
        const auto found = controls_.find(name);
        return found == controls_.end() ? nullptr : found->second.get();
    }

  private:
    static std::unique_ptr<Control> Make(const ControlDesign& design) {
        switch (design.kind) {
            case ControlKind::Label:
                return std::make_unique<FakeLabel>();
            case ControlKind::TextBox:
                return std::make_unique<FakeTextBox>();
            case ControlKind::TextArea:
                return std::make_unique<FakeTextArea>();
            case ControlKind::Button:
                return std::make_unique<FakeButton>();
            case ControlKind::CheckBox:
                return std::make_unique<FakeCheckBox>();
            case ControlKind::ListBox:
                return std::make_unique<FakeListBox>(design.sorted);
            case ControlKind::SimpleCombo:
                return std::make_unique<FakeSimpleCombo>(design.sorted);
            default:
                throw std::logic_error("no window tested here has such a control");
        }
    }

    std::deque<Script>& scripts_;
    std::map<std::string, std::unique_ptr<Control>, std::less<>> controls_;
    std::string caption_;
    Place place_{0, 0, 5000, 5000};
    bool shown_ = false;
};

}  // namespace varno
