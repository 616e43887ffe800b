// A list of which at most one row is selected. Once selected, a row stays so until another one is,
// or until it goes; a QListWidget lets go of it by Ctrl, and does not tell of a second press.
#pragma once

#include <QListWidget>
#include <functional>

namespace varno {

class RowList : public QListWidget {
  public:
    explicit RowList(QWidget* parent);

    int SelectedRow() const;  // -1 for none
    // Selects a row as the program does: unasked. Keys go on from there.
    void Select(int row);
    void StandAt(int row);  // where keys go on from; -1 for nowhere

    std::function<void()> OnChosen;    // a row was selected, or the selected one pressed once more
    std::function<void()> OnDblClick;  // on a row that the first click selected

  protected:
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                         const QEvent* event) const override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

  private:
    void TakePlace();
    void LeavePlace();
    bool IsOnSelectedRow(const QMouseEvent& event) const;

    // The current row of a list without the focus, which has none: assistive technology takes a
    // current row for one that has the focus.
    QPersistentModelIndex place_;
};

}  // namespace varno
