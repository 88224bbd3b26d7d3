#pragma once

#include <QAbstractTableModel>

#include "rename/results/result_grid.h"

/// The rows of a result window as Qt's views see them, with the roles that the list's painter
/// needs. Answers for one cell at a time. Group rows are described "group, 12 files", file rows by
/// what befell them and the first change of their name.
class ResultModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  explicit ResultModel(ResultGrid& grid, QObject* parent = nullptr);

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;
  /// Sorts within the groups; current and selected row go with their files.
  void sort(int column, Qt::SortOrder order) override;

  /// Shows the records as they stand.
  void Populate();
  /// Shows none.
  void Clear();

 private:
  QVariant FileData(std::size_t row, const ResultColumn& column, int role) const;
  QVariant MarkedNameOf(std::size_t row, int item) const;
  QString Describe(std::size_t row) const;

  ResultGrid& grid_;
};
