#include "filelist/kept_rows.h"

#include <QItemSelectionModel>

void KeptRows::Entries::Add(const GroupedRows& rows, std::size_t row) {
  if (rows.IsGroupRow(row)) {
    groups.insert(rows.GroupOf(row).text);
    return;
  }
  const std::size_t record = rows.RecordOf(row);
  // Some more than needed each time, for records come in the order in which they are displayed.
  if (record >= records.size()) records.resize(record + 1 + record / 2);
  records[record] = true;
}

bool KeptRows::Entries::Hold(const GroupedRows& rows, std::size_t row) const {
  if (rows.IsGroupRow(row)) return !groups.empty() && groups.contains(rows.GroupOf(row).text);
  return rows.RecordOf(row) < records.size() && records[rows.RecordOf(row)];
}

KeptRows::KeptRows(const GroupedRows& rows, const QItemSelectionModel& selection,
                   const std::vector<int>& selected) {
  for (const int row : selected) selected_.Add(rows, static_cast<std::size_t>(row));
  const QModelIndex current = selection.currentIndex();
  if (!current.isValid()) return;
  current_.Add(rows, static_cast<std::size_t>(current.row()));
  current_column_ = current.column();
}

void KeptRows::Restore(const GroupedRows& rows, QItemSelectionModel& selection) const {
  const QAbstractItemModel& model = *selection.model();
  for (std::size_t row = 0; current_column_ >= 0 && row < rows.RowCount(); ++row) {
    if (!current_.Hold(rows, row)) continue;
    selection.setCurrentIndex(model.index(static_cast<int>(row), current_column_),
                              QItemSelectionModel::NoUpdate);
    break;
  }
  const QItemSelection places = SelectedIn(rows, model);
  if (places.size() <= kMostPlaces) {
    selection.select(places, QItemSelectionModel::ClearAndSelect);
  } else {
    selection.select(selection.currentIndex(),
                     QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
  }
}

QItemSelection KeptRows::SelectedIn(const GroupedRows& rows,
                                    const QAbstractItemModel& model) const {
  QItemSelection places;
  const int last_column = model.columnCount() - 1;
  const std::size_t count = rows.RowCount();
  for (std::size_t row = 0; row < count; ++row) {
    if (!selected_.Hold(rows, row)) continue;
    const std::size_t first = row;
    while (row + 1 < count && selected_.Hold(rows, row + 1)) ++row;
    places.append(QItemSelectionRange(model.index(static_cast<int>(first), 0),
                                      model.index(static_cast<int>(row), last_column)));
  }
  return places;
}
