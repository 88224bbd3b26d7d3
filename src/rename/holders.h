#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "core/records.h"

/// Finds the row that holds a name, for the length of one pass: the answer is the one that looking
/// through all rows from the first gives, in time that does not grow with them.
///
/// Rows are kept by the hash of a key that the pass chooses; what is found is always checked
/// against the row itself. Made at the first question, since most runs ask none.
class HolderIndex {
 public:
  using KeyOf = std::function<std::size_t(const FileRow&)>;
  using Test = std::function<bool(const FileRow&)>;

  /// `gone` tells the rows that no question of this pass will be answered by again.
  HolderIndex(Records& records, KeyOf key_of, Test gone);

  /// The lowest number of a record under `key` that `holds` says yes to.
  std::optional<std::size_t> FirstWith(std::size_t key, const Test& holds);

  /// The key of the record has changed.
  void KeyChanged(std::size_t record);

 private:
  struct Entry {
    std::size_t key;
    std::uint32_t record;
    auto operator<=>(const Entry&) const = default;
  };
  void Make();
  std::size_t NextAlive(std::size_t entry);

  Records& records_;
  KeyOf key_of_;
  Test gone_;
  bool made_ = false;
  std::vector<Entry> entries_;        ///< as the rows stood when it was made, in order
  std::vector<std::uint32_t> alive_;  ///< per entry the next one that may still answer
  std::unordered_multimap<std::size_t, std::uint32_t> later_;  ///< keys changed since
};

/// A key of a folder's path and a name without regard to letter case.
std::size_t HolderKey(std::string_view path, std::string_view name);
