#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

/// Finds rows by a key, for the length of one pass, in time that hardly grows with their number.
///
/// A row whose key changes is added again; that its former key leads to it still is no harm, for
/// whoever asks looks at the row itself.
class HolderIndex {
 public:
  void Add(std::size_t key, std::size_t record);

  /// The records that were ever added under `key`, the lowest number first: so looking through them
  /// finds what looking through all rows from the first does.
  std::vector<std::size_t> Under(std::size_t key);

 private:
  using Entry = std::pair<std::size_t, std::uint32_t>;

  /// What is added before the first question stands here, in order: a third of the room.
  std::vector<Entry> first_;
  bool asked_ = false;
  std::unordered_multimap<std::size_t, std::uint32_t> later_;
};

/// A key of a folder and a name; the same for all names that some file system takes for one.
std::size_t HolderKey(std::size_t folder, std::string_view name);
