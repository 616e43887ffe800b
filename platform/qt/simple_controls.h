// The controls that are little more than a Qt widget.
#pragma once

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QTimer>
#include <memory>

#include "platform/qt/control_base.h"
#include "platform/qt/face_button.h"

namespace varno {

class QtFrame final : public QtControl<Control, QWidget> {
  public:
    QtFrame(const ControlDesign& design, QWidget* parent);
};

// Cuts a caption that is too long with an ellipsis and shows it whole as a tool tip. A QLabel cuts
// it without a sign.
class ElidingLabel : public QLabel {
  public:
    using QLabel::QLabel;

  protected:
    void paintEvent(QPaintEvent* event) override;
};

class QtLabel final : public QtControl<Label, ElidingLabel> {
  public:
    QtLabel(const ControlDesign& design, QWidget* parent);
    std::string Caption() const override { return FromQt(widget_->text()); }
    void SetCaption(const std::string& caption) override;
    void Repaint() override { widget_->repaint(); }

  private:
    void FitCaption();

    int designWidth_;   // pixels
    int largestWidth_;  // pixels
};

class QtButton final : public QtControl<Button, FaceButton> {
  public:
    QtButton(const ControlDesign& design, QWidget* parent);
};

class QtToggleButton final : public QtControl<ToggleButton, FaceButton> {
  public:
    QtToggleButton(const ControlDesign& design, QWidget* parent);
    bool Value() const override { return widget_->isChecked(); }
    void SetValue(bool pressed) override;
};

// Breaks its caption into lines where its place is too narrow; a QCheckBox has one line.
class WrappingCheckBox : public QCheckBox {
  public:
    using QCheckBox::QCheckBox;

    QRect CaptionRect() const;

  protected:
    void paintEvent(QPaintEvent* event) override;
    bool hitButton(const QPoint& position) const override { return rect().contains(position); }
};

class QtCheckBox final : public QtControl<CheckBox, WrappingCheckBox> {
  public:
    QtCheckBox(const ControlDesign& design, QWidget* parent);
    bool Value() const override { return widget_->isChecked(); }
    void SetValue(bool ticked) override;
};

class QtTextBox final : public QtControl<TextBox, QLineEdit> {
  public:
    QtTextBox(const ControlDesign& design, QWidget* parent);
    std::string Text() const override { return FromQt(widget_->text()); }
    void SetText(const std::string& text) override { widget_->setText(ToQt(text)); }
    void SetSelStart(int position) override { widget_->setCursorPosition(position); }
};

class QtDropDownList final : public QtControl<DropDownList, QComboBox> {
  public:
    QtDropDownList(const ControlDesign& design, QWidget* parent);
    void AddItem(const std::string& text) override { widget_->addItem(ToQt(text)); }
    void Clear() override { widget_->clear(); }
    int ListIndex() const override { return widget_->currentIndex(); }
    void SetListIndex(int index) override { widget_->setCurrentIndex(index); }

  private:
    void TakeSelection(int current);
};

class QtTimer final : public Timer {
  public:
    explicit QtTimer(const ControlDesign& design);
    void SetEnabled(bool enabled) override;
    bool Enabled() const override { return timer_.isActive(); }
    void SetInterval(int milliseconds) override { timer_.setInterval(milliseconds); }

  private:
    QTimer timer_;
};

class QtMenuItem final : public MenuItem {
  public:
    // Of a menu, the action that stands for it in the menu bar.
    explicit QtMenuItem(QAction* action) : action_(action) {}
    bool Enabled() const override { return action_->isEnabled(); }
    void SetEnabled(bool enabled) override { action_->setEnabled(enabled); }
    bool Visible() const override { return action_->isVisible(); }
    void SetVisible(bool visible) override { action_->setVisible(visible); }
    bool Checked() const override { return action_->isChecked(); }
    void SetChecked(bool checked) override { action_->setChecked(checked); }

  private:
    QAction* action_;
};

// Sets what the design table says of any widget.
void ApplyDesign(const ControlDesign& design, QWidget* widget);
// White paper for text whose colours carry meaning, whatever the desktop theme.
void UseWhitePaper(QWidget* widget, const QColor& ink);

}  // namespace varno
