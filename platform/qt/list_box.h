// A list of rows, at most one of them selected, in the order the program or the alphabet gives.
#pragma once

#include <QListWidget>

#include "platform/qt/control_base.h"
#include "platform/qt/focus_framed.h"

namespace varno {

class QtListBox;

class RowList final : public FocusFramed<QListWidget> {
  public:
    RowList(QtListBox* control, QWidget* parent);

  protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;

  private:
    QtListBox* control_;
};

class QtListBox final : public QtControl<ListBox, RowList> {
  public:
    QtListBox(const ControlDesign& design, QWidget* parent);

    int ListCount() const override { return widget_->count(); }
    std::string List(int index) const override;
    void AddItem(const std::string& text) override;
    void InsertItem(int index, const std::string& text) override;
    void SetItem(int index, const std::string& text) override;
    void RemoveItem(int index) override;
    void Clear() override;
    int ListIndex() const override;
    void SetListIndex(int index) override;
    void SetPlace(const Place& place) override;

  private:
    // Runs a change of the program's own, which raises no event.
    template <class Change>
    void Quietly(Change change);

    bool sorted_;
    bool quiet_ = false;
};

// A list shows whole rows only: the part of `room` that is as high as the rows that fit.
QRect WholeRows(const QListWidget& list, QRect room);

// Where `text` belongs in a list kept in alphabetical order: behind its equals.
int SortedPosition(const QListWidget& list, const QString& text);

}  // namespace varno
