// A list of rows, at most one of them selected, in the order the program or the alphabet gives.
#pragma once

#include "platform/qt/control_base.h"
#include "platform/qt/row_list.h"

namespace varno {

class QtListBox;

// Tells its control of keys and of the focus.
class ListBoxRows final : public RowList {
  public:
    ListBoxRows(QtListBox* control, QWidget* parent) : RowList(parent), control_(control) {}

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;

  private:
    QtListBox* control_;
};

class QtListBox final : public QtControl<ListBox, ListBoxRows> {
  public:
    QtListBox(const ControlDesign& design, QWidget* parent);

    int ListCount() const override { return widget_->count(); }
    std::string List(int index) const override;
    void AddItem(const std::string& text) override;
    void InsertItem(int index, const std::string& text) override;
    void SetItem(int index, const std::string& text) override;
    void RemoveItem(int index) override;
    void Clear() override;
    int ListIndex() const override { return widget_->SelectedRow(); }
    void SetPlace(const Place& place) override;

  private:
    bool sorted_;
};

// A list shows whole rows only: the part of `room` that is as high as the rows that fit.
QRect WholeRows(const QListWidget& list, QRect room);

// Where `text` belongs in a list kept in alphabetical order: behind its equals.
int SortedPosition(const QListWidget& list, const QString& text);

}  // namespace varno
