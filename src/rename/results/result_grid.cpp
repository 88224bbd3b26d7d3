#include "rename/results/result_grid.h"

#include <algorithm>
#include <numeric>
#include <unordered_map>

#include "platform/text.h"

namespace {

std::vector<std::uint32_t> Numbers(std::size_t count) {
  std::vector<std::uint32_t> numbers(count);
  std::iota(numbers.begin(), numbers.end(), 0u);
  return numbers;
}

/// Stable; `keys` holds a text for each number.
void SortByText(std::vector<std::uint32_t>& numbers, const std::vector<std::string>& keys,
                bool ascending) {
  std::stable_sort(numbers.begin(), numbers.end(), [&](std::uint32_t a, std::uint32_t b) {
    return ascending ? keys[a] < keys[b] : keys[b] < keys[a];
  });
}

}  // namespace

void ResultGrid::SetSortOrder(int column, bool ascending) {
  const auto& columns = kind_.columns;
  const bool sortable = column >= 0 && static_cast<std::size_t>(column) < columns.size() &&
                        columns[static_cast<std::size_t>(column)].cell == ResultCell::kName;
  sort_column_ = sortable ? column : -1;
  sort_ascending_ = ascending;
}

std::vector<std::uint32_t> ResultGrid::SortedRecords() const {
  const std::size_t count = kind_.count(reports_);
  std::vector<std::uint32_t> order = Numbers(count);
  if (sort_column_ < 0) return order;
  const int item = kind_.columns[static_cast<std::size_t>(sort_column_)].item;
  std::vector<std::string> keys(count);
  for (std::size_t i = 0; i < count; ++i) keys[i] = text::ToLower(kind_.item(reports_, i, item));
  SortByText(order, keys, sort_ascending_);
  return order;
}

/// Fills `groups_`; answers the number of each record's group.
std::vector<std::uint32_t> ResultGrid::CollectGroups() {
  const std::size_t count = kind_.count(reports_);
  std::unordered_map<std::string_view, std::uint32_t> numbers;
  std::vector<std::uint32_t> group_of(count);
  for (std::size_t i = 0; i < count; ++i) {
    const std::string_view path = kind_.item(reports_, i, kResultPath);
    const auto [found, is_new] =
        numbers.try_emplace(path, static_cast<std::uint32_t>(groups_.size()));
    if (is_new) groups_.push_back({std::string(path)});
    group_of[i] = found->second;
    ++groups_[found->second].file_count;
  }
  return group_of;
}

void ResultGrid::Populate() {
  Clear();
  const std::vector<std::uint32_t> group_of = CollectGroups();
  std::vector<std::string> keys;
  for (const Group& group : groups_) keys.push_back(text::ToLower(group.path));
  std::vector<std::uint32_t> shown_groups = Numbers(groups_.size());
  SortByText(shown_groups, keys, true);

  rows_.resize(group_of.size() + groups_.size());
  std::vector<std::size_t> next_row(groups_.size());
  std::size_t row = 0;
  for (const std::uint32_t group : shown_groups) {
    rows_[row] = -1 - static_cast<std::int32_t>(group);
    next_row[group] = row + 1;
    row += 1 + groups_[group].file_count;
  }
  for (const std::uint32_t record : SortedRecords()) {
    rows_[next_row[group_of[record]]++] = static_cast<std::int32_t>(record);
  }
}

void ResultGrid::Clear() {
  rows_.clear();
  groups_.clear();
}
