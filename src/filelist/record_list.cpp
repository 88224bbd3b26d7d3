#include "filelist/record_list.h"

bool RecordList::CanSort(int column) const {
  return column >= 0 && static_cast<std::size_t>(column) < source_.columns.size() &&
         ColumnAt(column).sort_key != nullptr;
}

void RecordList::SetSortOrder(int column, bool ascending) {
  sort_column_ = CanSort(column) ? column : -1;
  sort_ascending_ = ascending;
}

void RecordList::Populate() {
  RowOrder order;
  order.ascending = sort_ascending_;
  if (sort_column_ >= 0) order.key = ColumnAt(sort_column_).sort_key();
  if (group_column_ >= 0) order.groups = std::get<SharedTexts>(ColumnAt(group_column_).sort_key());
  rows_.Populate(source_.count(), order);
}
