#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "filelist/record_list.h"

/// Finds the row of a list whose name begins with what is typed: the first column that is sorted by
/// texts of its own has the names; letter case aside. Group rows have none.
class TypeToFind {
 public:
  /// Takes `letters`, typed at `now` in milliseconds, and answers the row that then fits, or none;
  /// `current` is the row where the user is, -1 for none. Letters that follow within a second add
  /// to those before; a beginning goes on behind the current row, as does the same letter again
  /// and again. From the last row it goes on at the first.
  std::optional<std::size_t> Type(std::string_view letters, std::int64_t now,
                                  const RecordList& list, int current);

  /// Whether what is typed at `now` adds to what was typed before.
  bool GoesOn(std::int64_t now) const;

 private:
  std::string typed_;  ///< folded
  std::int64_t last_ = 0;
};
