#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "common/natural_order.h"
#include "core/text_sort.h"

/// Texts that many records share: each record has the number of its text.
struct SharedTexts {
  std::size_t count = 0;  ///< of the texts
  std::function<std::uint32_t(std::size_t record)> number;
  std::function<std::string_view(std::uint32_t number)> text;
};

using NumberOf = std::function<double(std::size_t record)>;
using TextOf = std::function<std::string_view(std::size_t record)>;

/// Numbers the texts of `count` records, equal texts alike. The answer refers to them.
SharedTexts ShareTexts(std::size_t count, const TextOf& text_of);

/// By what records are sorted, texts in their natural order; `monostate` leaves them as they stand.
using SortKey = std::variant<std::monostate, NumberOf, TextOf, SharedTexts>;

struct RowOrder {
  SortKey key;
  bool ascending = true;
  std::optional<SharedTexts> groups;  ///< none, no group rows
};

/// The rows of a list: the numbers of its records in the order in which they are shown, group rows
/// among them. Refers to no record; what it tells holds until the next `Populate` or `Clear`.
class GroupedRows {
 public:
  /// Makes the rows of the records 0 to `count` - 1. Groups stand in ascending order of their
  /// texts, equal ones as their first records do; the sort is stable, downwards too, and works
  /// within groups.
  ///
  /// `go_on`, when given, is called now and then while texts are sorted; false stops it: then there
  /// are no rows, as while it is asked, and the answer is false.
  bool Populate(std::size_t count, const RowOrder& order,
                const std::function<bool()>& go_on = nullptr);
  void Clear();

  std::size_t RowCount() const { return rows_.size(); }
  /// Another number after each `Populate` and `Clear`.
  std::uint64_t Version() const { return version_; }
  bool IsGrouped() const { return !groups_.empty(); }
  bool IsGroupRow(std::size_t row) const { return rows_[row] < 0; }
  /// The number of the record of a file row.
  std::size_t RecordOf(std::size_t row) const { return static_cast<std::size_t>(rows_[row]); }

  struct Group {
    std::string text;
    std::size_t row = 0;         ///< of its heading
    std::size_t file_count = 0;  ///< its file rows are the next ones
  };
  /// The group of a group row, or of a file row in a grouped list.
  const Group& GroupOf(std::size_t row) const;

 private:
  std::vector<std::size_t> PlaceGroups(const SharedTexts& texts,
                                       const std::vector<std::uint32_t>& number_of,
                                       const std::vector<std::uint32_t>& ranks);

  std::vector<std::int32_t> rows_;  ///< a record's number, or -1 less a group's
  std::vector<Group> groups_;       ///< from the top
  std::uint64_t version_ = 0;
};
