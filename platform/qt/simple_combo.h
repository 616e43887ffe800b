// An edit field over a list that is always open; a QComboBox closes its list.
#pragma once

#include <QLineEdit>
#include <QScrollBar>

#include "platform/qt/control_base.h"
#include "platform/qt/row_list.h"

namespace varno {

class QtSimpleCombo;

// The two halves in one widget, the list under the field and as wide.
class ComboPanel final : public QWidget {
  public:
    ComboPanel(QtSimpleCombo* control, QWidget* parent);

    QLineEdit* field;
    RowList* list;

  protected:
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void Choose();

    QtSimpleCombo* control_;
};

class QtSimpleCombo final : public QtControl<SimpleCombo, ComboPanel> {
  public:
    QtSimpleCombo(const ControlDesign& design, QWidget* parent);

    std::string Text() const override { return FromQt(widget_->field->text()); }
    void SetText(const std::string& text) override;
    void SetFocus() override;
    void AddItems(std::span<const std::string> items) override;
    int ListCount() const override { return widget_->list->count(); }
    std::string List(int index) const override;
    int TopIndex() const override { return widget_->list->verticalScrollBar()->value(); }
    void SetTopIndex(int index) override { widget_->list->verticalScrollBar()->setValue(index); }

  private:
    QListWidgetItem* EntryOfText() const;  // null if the text names none
    // Selects the entry that the text names, or shows where it would stand.
    void FollowText();

    bool sorted_;
};

}  // namespace varno
