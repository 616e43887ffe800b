// A window built from its design table: one with menus is a QMainWindow, any other a QDialog.
#pragma once

#include <QObject>
#include <QWidget>
#include <map>
#include <memory>
#include <string>

#include "platform/qt/context_items.h"
#include "platform/window.h"

class QAbstractButton;
class QMenuBar;

namespace varno {

class QtWindow final : public QObject, public Window {
  public:
    // `parent`: the window that this one belongs to; none for the main window.
    QtWindow(const WindowDesign& design, QWidget* parent);
    ~QtWindow() override;

    void SetCaption(const std::string& caption) override;
    Place OuterPlace() const override;
    void SetOuterPlace(const Place& place) override;
    void SetMinimumSize(int outerWidth, int outerHeight) override;
    WindowState State() const override;
    void SetState(WindowState state) override;
    bool IsShown() const override { return widget_->isVisible(); }
    void Show() override;
    void ShowModal() override;
    void Activate() override;
    void Announce(const std::string& text) override;
    void Hide() override;
    void Close() override;
    Place CurrentOuterPlace() const override;

    QWidget* Widget() { return widget_.get(); }

  protected:
    Component* Find(std::string_view name) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void AddControls(const WindowDesign& design);
    void AddMenus(const WindowDesign& design, QMenuBar& menuBar);
    void TieLabels(const WindowDesign& design);
    void NoteButtonRoles(const ControlDesign& control, Component* component);
    void PreviewKey(const QObject* receiver, const QString& text);
    void Resized();
    void Activated();
    int MenuBarHeight() const;
    Place ToOuter(const QRect& frame) const;

    // Outlives the widgets: at their end they may still call the components.
    std::map<std::string, std::unique_ptr<Component>, std::less<>> components_;
    std::unique_ptr<QWidget> widget_;
    QWidget* client_;             // what the controls lie in
    QWidget* menuBar_ = nullptr;  // null in a dialog
    QWidget* statusStrip_ = nullptr;
    QAbstractButton* cancelButton_ = nullptr;  // pressed by Esc
    int frameHeight_;
    std::unique_ptr<ContextItems> contextItems_;
};

}  // namespace varno
