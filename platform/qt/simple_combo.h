// An edit field over a list that is always open.
#pragma once

#include <QLineEdit>
#include <QListWidget>

#include "platform/qt/control_base.h"

namespace varno {

class QtSimpleCombo;

// The two halves in one widget, the list under the field and as wide.
class ComboPanel final : public QWidget {
  public:
    ComboPanel(QtSimpleCombo* control, QWidget* parent);

    QLineEdit* field;
    QListWidget* list;

  protected:
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void Choose(const QListWidgetItem* item);

    QtSimpleCombo* control_;
};

class QtSimpleCombo final : public QtControl<SimpleCombo, ComboPanel> {
  public:
    QtSimpleCombo(const ControlDesign& design, QWidget* parent);

    std::string Text() const override { return FromQt(widget_->field->text()); }
    void SetText(const std::string& text) override { widget_->field->setText(ToQt(text)); }
    void AddItems(std::span<const std::string> items) override;
    int ListCount() const override { return widget_->list->count(); }
    std::string List(int index) const override;

  private:
    // Selects the entry that the text names, or shows where it would stand.
    void FollowText();

    bool sorted_;
};

}  // namespace varno
