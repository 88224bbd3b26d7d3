#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "core/file_row.h"
#include "core/grouped_rows.h"
#include "core/name_problem.h"
#include "look/keys.h"
#include "settings/options.h"

/// What the cells of a column are.
enum class Cell {
  kText,
  kNumber,   ///< at the right
  kCheck,    ///< the record's check box
  kMark,     ///< the record's mark, centred
  kOldName,  ///< marked where its words are gone in the new name
  kNewName,  ///< marked where its words are new
  kHidden,   ///< kept among the columns, never shown
};

enum class WidthRule {
  kFixed,   ///< as told; the user can't drag it
  kFree,    ///< as told until the user drags it
  kShared,  ///< shares with its like what the others leave, until the user drags it
};

/// How wide a column is, in logical pixels.
struct ColumnWidth {
  WidthRule rule;
  int base;                             ///< or wider, where its texts or its heading need it
  std::vector<std::string> texts = {};  ///< it has room for each of these
  int air = 0;                          ///< and for this beside them
  int yields_to = 0;  ///< so narrow it gets before shared ones fall short; 0: it never yields
};

/// The space between a cell's edges and its text, in logical pixels.
inline constexpr int kCellInset = 6;
/// Names, which the user can see more of in a wider window.
inline const ColumnWidth kNameWidth{WidthRule::kShared, 140};
/// Marks, whichever they are.
inline const ColumnWidth kMarkWidth{WidthRule::kFixed, 40, {">>", "Done", "Failed"}, kCellInset};

/// A check box that shows its column and bears the same caption; it starts off.
struct ColumnBox {
  std::string_view name;
  bool ListOptions::*option = nullptr;
  Keys keys = Keys::kNone;
};

/// A column of a list, wholly.
struct ListColumn {
  std::string_view caption;
  Cell cell = Cell::kText;
  ColumnWidth width = {WidthRule::kFree, 0};
  std::function<std::string(std::size_t record)> text = nullptr;  ///< null: no text
  std::function<SortKey()> sort_key = nullptr;  ///< made for a sort; null: not sorted by
  ColumnBox box = {};                           ///< without a name: none
  bool folders = false;                         ///< its texts are paths of folders
};

/// Makes functions of a record's number from fields and functions of the records in `records`.
template <class Records>
auto FieldsOf(const Records& records) {
  return [&records](auto field) {
    return [&records, field](std::size_t i) -> decltype(auto) {
      return std::invoke(field, records[i]);
    };
  };
}

/// Sort keys of a column whose records hold them.
inline std::function<SortKey()> ByNumber(const NumberOf& number_of) {
  return [number_of] { return number_of; };
}
template <class Of>
std::function<SortKey()> ByText(const Of& text_of) {
  static_assert(!std::is_same_v<std::invoke_result_t<Of, std::size_t>, std::string>,
                "a text that is not the record's own would be gone before it is compared");
  return [text_of] { return TextOf(text_of); };
}

/// What a list tells of a record beyond the texts of its cells.
struct RecordFacts {
  std::string_view state;  ///< "failed": what colours and marks tell
  Mark mark;
  int problem;  ///< errno, a FileProblem, or 0
  std::string_view old_name;
  std::optional<std::string_view> new_name;  ///< none while there is none to tell of
  bool checked = true;                       ///< off: passed over
  NameVerdict verdict = {};                  ///< on the new name, where that is known
  bool settled = true;                       ///< no preview would change the new name
  bool draft = false;                        ///< the new name is what a preview would give
};

/// The records that a list shows, told apart by their numbers. What the functions answer refers to
/// the records.
struct RecordSource {
  std::vector<ListColumn> columns;
  std::function<std::size_t()> count;
  std::function<RecordFacts(std::size_t record)> facts;
  /// The path of the file that a record stands for.
  std::function<std::string(std::size_t record)> file;
  /// Sets a check box; null where the list has none.
  std::function<void(std::size_t record, bool checked)> check = nullptr;
  /// Whether new names that aren't settled are shown as drafts now; null: never.
  std::function<bool()> drafting = nullptr;
};

/// A displayed list: records grouped and sorted by its columns. Holds numbers of records only,
/// never copies of them.
class RecordList {
 public:
  explicit RecordList(RecordSource source) : source_(std::move(source)) {}

  const RecordSource& Source() const { return source_; }
  const std::vector<ListColumn>& Columns() const { return source_.columns; }
  const GroupedRows& Rows() const { return rows_; }

  /// A column whose sort key is of shared texts, or -1 for no groups. Takes effect at the next
  /// `Populate`.
  void SetGroupColumn(int column) { group_column_ = column; }

  /// Takes effect at the next `Populate`; a column that isn't sorted by gives the order of the
  /// records.
  void SetSortOrder(int column, bool ascending);
  bool CanSort(int column) const;
  /// The groups are folders.
  bool GroupsAreFolders() const { return group_column_ >= 0 && ColumnAt(group_column_).folders; }
  int SortColumn() const { return sort_column_; }
  bool SortAscending() const { return sort_ascending_; }

  /// The name that a displayed row would get now, for as long as nothing else is asked; or none.
  using DraftOf = std::function<std::optional<std::string_view>(std::size_t row)>;
  void SetDrafts(DraftOf draft_of) { draft_of_ = std::move(draft_of); }
  /// Drafts stand where new names are not settled.
  bool ShowsDrafts() const;
  /// What is told of a file row; holds until the next call.
  RecordFacts FactsOf(std::size_t row) const;
  /// What stands above a column now.
  std::string Heading(int column) const;
  /// The longest that may stand there.
  std::string LongestHeading(int column) const;

  /// Makes the rows anew from the records; see `GroupedRows::Populate`.
  bool Populate(const std::function<bool()>& go_on = nullptr);
  /// No rows, whatever the records are.
  void Clear() { rows_.Clear(); }

 private:
  const ListColumn& ColumnAt(int column) const {
    return source_.columns[static_cast<std::size_t>(column)];
  }

  RecordSource source_;
  DraftOf draft_of_;
  GroupedRows rows_;
  int group_column_ = -1;
  int sort_column_ = -1;
  bool sort_ascending_ = true;
};
