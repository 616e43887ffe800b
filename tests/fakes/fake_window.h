// A window in memory, built from its design table. A modal showing is operated by the script that
// the test queued for it, and has to be hidden or closed by the end of it.
#pragma once

#include <gtest/gtest.h>

#include <deque>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "platform/window.h"
#include "tests/fakes/fake_controls.h"

namespace varno {

class FakeCheckBox final : public FakeControl<CheckBox> {
  public:
    bool Value() const override { return ticked_; }
    void SetValue(bool ticked) override { ticked_ = ticked; }
    void Click() {
        SetFocus();
        ticked_ = !ticked_;
        Raise(OnClick);
    }

  private:
    bool ticked_ = false;
};

class FakeSimpleCombo final : public FakeControl<SimpleCombo> {
  public:
    explicit FakeSimpleCombo(bool sorted = false) : sorted_(sorted) {}

    std::string Text() const override { return text_; }
    void SetText(const std::string& text) override {
        if (text_ != text) {
            text_ = text;
            Raise(OnChange);
        }
    }
    void AddItems(std::span<const std::string> items) override {
        entries_.insert(entries_.end(), items.begin(), items.end());
        if (sorted_) {
            std::stable_sort(entries_.begin(), entries_.end());
        }
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
        for (const char c : text) {
            SetText(text_ + c);
        }
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
    std::string text_;
    std::vector<std::string> entries_;
};

class FakeWindow final : public Window {
  public:
    using Script = std::function<void(FakeWindow&)>;

    FakeWindow(const WindowDesign& design, std::deque<Script>& scripts)
        : scripts_(scripts), caption_(design.caption) {
        place_.width = design.clientWidth + FrameWidth;
        place_.height = design.clientHeight +
                        (design.menus.empty() ? FrameHeightWithoutMenu : FrameHeightWithMenu);
        for (const ControlDesign& control : design.controls) {
            Add(control);
        }
        for (const MenuDesign& menu : design.menus) {
            auto item = std::make_unique<FakeMenuItem>();
            item->SetEnabled(menu.enabled);
            item->SetVisible(menu.visible);
            components_[std::string(menu.name)] = std::move(item);
        }
    }

    std::string Caption() const override { return caption_; }
    void SetCaption(const std::string& caption) override { caption_ = caption; }
    Place OuterPlace() const override { return place_; }
    void SetOuterPlace(const Place& place) override {
        place_ = place;
        Raise(OnResize);
    }
    void SetMinimumSize(int outerWidth, int outerHeight) override {
        place_.width = std::max(place_.width, outerWidth);
        place_.height = std::max(place_.height, outerHeight);
    }
    WindowState State() const override { return state_; }
    void SetState(WindowState state) override {
        state_ = state;
        Raise(OnResize);
    }
    Place CurrentOuterPlace() const override { return place_; }

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
        if (shown_) {
            ADD_FAILURE() << "left open: " << caption_;
            Hide();
        }
    }
    void Hide() override { shown_ = false; }
    void Close() override {
        shown_ = false;
        Raise(OnClose);
    }

    bool IsShown() const { return shown_; }

  protected:
    Component* Find(std::string_view name) override {
        const auto found = components_.find(name);
        return found == components_.end() ? nullptr : found->second.get();
    }

  private:
    void Add(const ControlDesign& design) {
        switch (design.kind) {
            case ControlKind::Label:
                return AddControl(design, std::make_unique<FakeLabel>());
            case ControlKind::TextBox: {
                auto box = std::make_unique<FakeTextBox>();
                box->maxLength = static_cast<std::size_t>(design.maxLength);
                return AddControl(design, std::move(box));
            }
            case ControlKind::TextArea:
                return AddControl(design, std::make_unique<FakeTextArea>());
            case ControlKind::Button:
                return AddControl(design, std::make_unique<FakeButton>());
            case ControlKind::ToggleButton:
                return AddControl(design, std::make_unique<FakeToggleButton>());
            case ControlKind::CheckBox:
                return AddControl(design, std::make_unique<FakeCheckBox>());
            case ControlKind::ListBox:
                return AddControl(design, std::make_unique<FakeListBox>(design.sorted));
            case ControlKind::SimpleCombo:
                return AddControl(design, std::make_unique<FakeSimpleCombo>(design.sorted));
            default:
                return;  // asking for it throws
        }
    }
    template <class Fake>
    void AddControl(const ControlDesign& design, std::unique_ptr<Fake> control) {
        control->SetEnabled(design.enabled);
        control->SetVisible(design.visible);
        control->SetPlace(design.place);
        components_[std::string(design.name)] = std::move(control);
    }

    std::deque<Script>& scripts_;
    std::map<std::string, std::unique_ptr<Component>, std::less<>> components_;
    std::string caption_;
    Place place_;
    WindowState state_ = WindowState::Normal;
    bool shown_ = false;
};

}  // namespace varno
