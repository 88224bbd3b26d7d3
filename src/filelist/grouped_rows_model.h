#pragma once

#include <QAbstractTableModel>
#include <vector>

#include "filelist/record_list.h"

/// The rows of a list of files as Qt's views see them: all that it answers stands in the columns
/// and facts of the list. Holds nothing of its own; answers for one cell at a time, so that a reset
/// costs nothing a row. Texts are shown by `text::Shown`.
///
/// Drafts of new names are told as such, in heading and description.
///
/// Group rows can be selected, have no check box, and are described "group, 12 files" in every
/// column. File rows are described by their state, why they failed, and the first change of their
/// name.
class GroupedRowsModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  /// `list` outlives the model.
  explicit GroupedRowsModel(RecordList& list, QObject* parent = nullptr);

  const RecordList& List() const { return list_; }

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;
  /// Takes check states only; tells by `rowChecked`.
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;
  /// Sorts the list; a negative column gives the order of the records back. As all that makes the
  /// rows anew, it resets the model; `ListView::ChangeRows` keeps what is selected.
  void sort(int column, Qt::SortOrder order) override;
  /// Groups the list anew.
  void Regroup(int column);
  /// Shows the records as they stand, but no list that shows no rows: it stays so until it is
  /// filled, whatever a cancelled scan has left in the records.
  void ShowAnew();
  /// Shows the records as they stand.
  void Populate();
  /// Shows none.
  void Clear();
  /// The list was populated or cleared.
  void Reset();
  /// Cells have changed; rows and their order stand.
  void RowsChanged();
  /// Tells of the headings where they are others since the last call.
  void TellHeadings();

  bool IsFileRow(int row) const;
  /// The path of the file of a file row.
  std::string FileOf(int row) const { return list_.Source().file(RecordOf(row)); }
  /// A number that is another one when the row tells something else.
  std::size_t LookOf(int row) const;
  /// Whether a file row is checked.
  bool IsChecked(int row) const { return Facts(row).checked; }

  /// Sets the check box of each file row among `rows`; tells by `rowChecked` once.
  void CheckRows(const std::vector<int>& rows, bool checked);

 signals:
  /// The user has changed check boxes, `row`'s among them.
  void rowChecked(int row);

 private:
  const ListColumn& ColumnAt(int column) const {
    return list_.Columns()[static_cast<std::size_t>(column)];
  }
  std::size_t RecordOf(int row) const {
    return list_.Rows().RecordOf(static_cast<std::size_t>(row));
  }
  RecordFacts Facts(int row) const { return list_.FactsOf(static_cast<std::size_t>(row)); }
  QVariant FileData(int row, const ListColumn& column, int role) const;
  QString TextOf(int row, const ListColumn& column) const;

  RecordList& list_;
  bool told_drafts_ = false;  ///< by the headings
};
