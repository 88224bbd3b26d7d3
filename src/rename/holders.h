#pragma once

#include <cstddef>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "rename/row_table.h"

/// Finds rows by a key, for the length of one pass, in time that doesn't grow with their number.
///
/// A row whose key changes is added again; that its former key leads to it still is no harm, for
/// whoever asks looks at the row itself.
class HolderIndex {
 public:
  /// Of the rows below `rows`; some ten bytes for each, whether it is added or not.
  explicit HolderIndex(std::size_t rows) : room_(2 * rows) { table_.Reserve(rows, room_); }

  void Add(std::size_t key, std::size_t record);

  /// The records that were ever added under `key`, the lowest number first: so looking through them
  /// finds what looking through all rows from the first does. A few others may be among them.
  std::vector<std::size_t> Under(std::size_t key) const;

 private:
  std::size_t room_;  ///< how many more the table takes: a row is seldom added more than twice
  RowTable table_;
  std::unordered_multimap<std::size_t, std::size_t> more_;
};

/// A key of a folder and a name; the same for all names that some file system takes for one.
std::size_t HolderKey(std::size_t folder, std::string_view name);
