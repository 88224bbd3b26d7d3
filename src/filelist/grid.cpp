#include "filelist/grid.h"

#include <algorithm>
#include <numeric>

#include "platform/text.h"

namespace {

/// The place of each text of a table in the order by lower case; equal texts share a place.
template <class TextOf>
std::vector<std::uint32_t> Ranks(std::size_t count, TextOf text_of) {
  std::vector<std::string> lower(count);
  std::vector<std::uint32_t> order(count);
  for (std::uint32_t i = 0; i < count; ++i) {
    lower[i] = text::ToLower(text_of(i));
    order[i] = i;
  }
  std::sort(order.begin(), order.end(),
            [&](std::uint32_t a, std::uint32_t b) { return lower[a] < lower[b]; });
  std::vector<std::uint32_t> ranks(count);
  for (std::size_t i = 0; i < count; ++i) {
    const bool new_rank = i > 0 && lower[order[i]] != lower[order[i - 1]];
    ranks[order[i]] = i == 0 ? 0 : ranks[order[i - 1]] + (new_rank ? 1 : 0);
  }
  return ranks;
}

template <class Key>
void StableSort(std::vector<std::uint32_t>& order, bool ascending, Key key) {
  if (ascending) {
    std::stable_sort(order.begin(), order.end(),
                     [&](std::uint32_t a, std::uint32_t b) { return key(a) < key(b); });
  } else {
    std::stable_sort(order.begin(), order.end(),
                     [&](std::uint32_t a, std::uint32_t b) { return key(b) < key(a); });
  }
}

template <class NameOf>
void SortByName(std::vector<std::uint32_t>& order, bool ascending, NameOf name_of) {
  std::vector<std::string> lower(order.size());
  for (std::uint32_t i = 0; i < order.size(); ++i) lower[i] = text::ToLower(name_of(i));
  StableSort(order, ascending, [&](std::uint32_t i) -> const std::string& { return lower[i]; });
}

}  // namespace

void Grid::SetSortOrder(int column, bool ascending) {
  const bool sortable = column != kColumnCheck && column != kColumnMark && column < kColumnCount;
  sort_column_ = sortable ? column : -1;
  sort_ascending_ = ascending;
}

std::vector<std::uint32_t> Grid::SortedRecords() const {
  const Records& records = records_;
  std::vector<std::uint32_t> order(records.Count());
  std::iota(order.begin(), order.end(), 0u);
  const auto sort = [&](auto key) { StableSort(order, sort_ascending_, key); };
  switch (sort_column_) {
    case kColumnPath: {
      const auto ranks =
          Ranks(records.FolderCount(), [&](std::uint32_t i) { return records.FolderPath(i); });
      sort([&](std::uint32_t i) { return ranks[records[i].folder]; });
      break;
    }
    case kColumnType: {
      const auto ranks =
          Ranks(records.TextCount(), [&](std::uint32_t i) { return records.TextAt(i); });
      sort([&](std::uint32_t i) { return ranks[records[i].type]; });
      break;
    }
    case kColumnSize:
      sort([&](std::uint32_t i) { return records[i].size; });
      break;
    case kColumnDate:
      sort([&](std::uint32_t i) { return records[i].date; });
      break;
    case kColumnSourceName:
      SortByName(order, sort_ascending_,
                 [&](std::uint32_t i) -> const std::string& { return records[i].sourceFileName; });
      break;
    case kColumnNewName:
      SortByName(order, sort_ascending_,
                 [&](std::uint32_t i) -> const std::string& { return records[i].newFileName; });
      break;
    default:
      break;
  }
  return order;
}

std::uint32_t Grid::GroupNumber(std::uint32_t record) const {
  const FileRow& row = records_[record];
  return group_by_ == GroupBy::kPath ? row.folder : row.type;
}

void Grid::Populate() {
  Clear();
  const std::vector<std::uint32_t> order = SortedRecords();
  if (group_by_ == GroupBy::kNone) {
    rows_.assign(order.begin(), order.end());
    return;
  }
  const bool by_path = group_by_ == GroupBy::kPath;
  const std::size_t number_count = by_path ? records_.FolderCount() : records_.TextCount();
  std::vector<std::size_t> file_counts(number_count);
  std::vector<std::uint32_t> groups;  // the numbers in use, in scan order
  for (std::uint32_t i = 0; i < records_.Count(); ++i) {
    if (file_counts[GroupNumber(i)]++ == 0) groups.push_back(GroupNumber(i));
  }
  const auto text_of = [&](std::uint32_t number) -> const std::string& {
    return by_path ? records_.FolderPath(number) : records_.TextAt(number);
  };
  const std::vector<std::uint32_t> ranks = Ranks(number_count, text_of);
  StableSort(groups, true, [&](std::uint32_t number) { return ranks[number]; });

  std::vector<std::size_t> next_row(number_count);
  rows_.resize(records_.Count() + groups.size());
  std::size_t row = 0;
  for (const std::uint32_t number : groups) {
    rows_[row] = -1 - static_cast<std::int32_t>(groups_.size());
    groups_.push_back({text_of(number), row, file_counts[number]});
    next_row[number] = row + 1;
    row += 1 + file_counts[number];
  }
  for (const std::uint32_t record : order) {
    rows_[next_row[GroupNumber(record)]++] = static_cast<std::int32_t>(record);
  }
}

void Grid::Clear() {
  rows_.clear();
  groups_.clear();
}

const Grid::Group& Grid::GroupOf(std::size_t row) const {
  const auto behind =
      std::upper_bound(groups_.begin(), groups_.end(), row,
                       [](std::size_t value, const Group& group) { return value < group.row; });
  return *std::prev(behind);
}
