#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

/// Finds rows by a key, for the length of one pass: the answer is the one that looking through all
/// rows from the first gives, in time that does not grow with them.
///
/// A row whose key changes is added again; that its former key leads to it still is no harm, for
/// what is found is always checked against the row itself.
class HolderIndex {
 public:
  void Add(std::size_t key, std::size_t record) {
    later_.emplace(key, static_cast<std::uint32_t>(record));
  }

  /// What is added from the first row on, before the first question, belongs in here: it takes a
  /// third of the room.
  void AddFirst(std::size_t key, std::size_t record) {
    first_.push_back({key, static_cast<std::uint32_t>(record)});
  }
  void EndOfFirst();

  /// The lowest number of a record under `key` that `holds` says yes to.
  template <class Holds>
  std::optional<std::size_t> First(std::size_t key, Holds&& holds) const {
    std::optional<std::size_t> found;
    for (auto i = FirstOf(key); i != first_.end() && i->first == key && !found; ++i) {
      if (holds(i->second)) found = i->second;
    }
    const auto [begin, end] = later_.equal_range(key);
    for (auto i = begin; i != end; ++i) {
      if ((!found || i->second < *found) && holds(i->second)) found = i->second;
    }
    return found;
  }

 private:
  using Entry = std::pair<std::size_t, std::uint32_t>;
  std::vector<Entry>::const_iterator FirstOf(std::size_t key) const;

  std::vector<Entry> first_;  ///< in order
  std::unordered_multimap<std::size_t, std::uint32_t> later_;
};

/// A key of a folder and a name; the same for all names that some file system takes for one.
std::size_t HolderKey(std::size_t folder, std::string_view name);
