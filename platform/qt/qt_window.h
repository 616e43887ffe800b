// A window built from its design table.
#pragma once

#include <QEventLoop>
#include <QMainWindow>
#include <map>
#include <memory>
#include <string>

#include "platform/window.h"

namespace varno {

class QtWindow;

// The widget: turns Qt's window events into the program's.
class Shell final : public QMainWindow {
  public:
    Shell(QtWindow* window, QWidget* parent, Qt::WindowFlags flags);

  protected:
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QtWindow* window_;
};

class QtWindow final : public Window {
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
    bool IsShown() const override { return shell_.isVisible(); }
    void Show() override;
    void ShowModal() override;
    void Hide() override;
    void Close() override;
    Place CurrentOuterPlace() const override;

    QWidget* Widget() { return &shell_; }

  protected:
    Component* Find(std::string_view name) override;

  private:
    friend class Shell;

    void AddControls(const WindowDesign& design);
    void AddMenus(const WindowDesign& design);
    void ConnectDefaultButtons(const ControlDesign& control, Component* component);
    void Resized();
    int MenuBarHeight() const;
    Place ToOuter(const QRect& frame) const;

    // Outlives the widgets: at their end they may still call the components.
    std::map<std::string, std::unique_ptr<Component>, std::less<>> components_;
    Shell shell_;
    QWidget* client_;
    QWidget* statusStrip_ = nullptr;
    int frameHeight_;
    WindowState startState_ = WindowState::Normal;  // taken on at the first showing
    std::function<void()> pressDefault_;            // what Enter and Esc press
    std::function<void()> pressCancel_;
    QEventLoop* modal_ = nullptr;
    bool hasPlace_ = false;  // a dialog, once centred on its parent
};

}  // namespace varno
