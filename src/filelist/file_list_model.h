#pragma once

#include <QAbstractTableModel>

#include "filelist/grid.h"

/// The rows of the grid as Qt's views see them. Holds nothing of its own; answers for one cell at
/// a time, so that a reset costs nothing a row. Names are shown by `text::Shown`.
///
/// Group rows can be selected, have no check box, and are described "group, 12 files" in every
/// column. File rows are described by their state and the first change of their name. The check
/// boxes are in the column `kColumnCheck`.
class FileListModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  explicit FileListModel(Grid& grid, QObject* parent = nullptr);

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;
  /// Takes check states only; tells by `rowChecked`.
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;
  /// Sorts the grid; a negative column gives scan order back. Current and selected rows go with
  /// their files.
  void sort(int column, Qt::SortOrder order) override;

  /// Groups the grid anew. A list that shows no rows stays so until it is filled.
  void Regroup(GroupBy group_by);
  /// The grid was populated or cleared.
  void Reset();
  /// Cells have changed; rows and their order stand.
  void RowsChanged();

  /// Sets the check box of each file row among `rows`; tells by `rowChecked` once.
  void CheckRows(const std::vector<int>& rows, bool checked);

 signals:
  /// The user has changed check boxes, `row`'s among them.
  void rowChecked(int row);

 private:
  const FileRow& RowAt(int row) const;
  QVariant FileData(const FileRow& row, int column, int role) const;
  QString DisplayText(const FileRow& row, int column) const;
  QVariant MarkedNameOf(const FileRow& row, int column) const;

  Grid& grid_;
};
