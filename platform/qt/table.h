// Rows in columns. A row takes no memory of its own: what is in sight is asked for.
#pragma once

#include <QAbstractTableModel>
#include <QTreeView>

#include "platform/qt/control_base.h"

namespace varno {

class TableModel final : public QAbstractTableModel {
  public:
    TableModel(const Table& table, std::span<const ColumnDesign> columns)
        : table_(table), columns_(columns) {}

    void ShowRows(int count);
    void Repaint();

    int rowCount(const QModelIndex& parent) const override;
    int columnCount(const QModelIndex& parent) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  private:
    const Table& table_;
    std::span<const ColumnDesign> columns_;
    int rows_ = 0;
};

// Once selected, a row stays so until another is.
class TableView final : public QTreeView {
  public:
    using QTreeView::QTreeView;
    int SelectedRow() const;

  protected:
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                         const QEvent* event) const override;
};

class QtTable final : public QtControl<Table, TableView> {
  public:
    QtTable(const ControlDesign& design, QWidget* parent);
    void ShowRows(int count, int selected) override;
    void Repaint() override { model_.Repaint(); }
    int SelectedRow() const override { return widget_->SelectedRow(); }

  private:
    TableModel model_;
};

}  // namespace varno
