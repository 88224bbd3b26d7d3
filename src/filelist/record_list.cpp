#include "filelist/record_list.h"

#include "common/language.h"

bool RecordList::CanSort(int column) const {
  return column >= 0 && static_cast<std::size_t>(column) < source_.columns.size() &&
         ColumnAt(column).sort_key != nullptr;
}

void RecordList::SetSortOrder(int column, bool ascending) {
  sort_column_ = CanSort(column) ? column : -1;
  sort_ascending_ = ascending;
}

bool RecordList::ShowsDrafts() const {
  return draft_of_ && rows_.RowCount() > 0 && source_.drafting && source_.drafting();
}

RecordFacts RecordList::FactsOf(std::size_t row) const {
  RecordFacts facts = source_.facts(rows_.RecordOf(row));
  if (facts.settled || !ShowsDrafts()) return facts;
  facts.draft = true;
  facts.new_name = draft_of_(row);
  if (facts.new_name && facts.new_name->empty()) facts.new_name.reset();
  return facts;
}

std::string RecordList::Heading(int column) const {
  return ShowsDrafts() ? LongestHeading(column) : std::string(ColumnAt(column).caption);
}

std::string RecordList::LongestHeading(int column) const {
  const bool drafts = draft_of_ && ColumnAt(column).cell == Cell::kNewName;
  return std::string(ColumnAt(column).caption).append(drafts ? mLanguageGobals::kDraft : "");
}

bool RecordList::Populate(const std::function<bool()>& go_on) {
  RowOrder order;
  order.ascending = sort_ascending_;
  if (sort_column_ >= 0) order.key = ColumnAt(sort_column_).sort_key();
  if (group_column_ >= 0) order.groups = std::get<SharedTexts>(ColumnAt(group_column_).sort_key());
  return rows_.Populate(source_.count(), order, go_on);
}
