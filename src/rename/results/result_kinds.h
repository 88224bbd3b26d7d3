#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

#include "core/file_row.h"
#include "rename/result_rows.h"

enum class ResultCell {
  kHidden,  ///< kept among the columns, never shown
  kName,    ///< a file name, which can be sorted by
  kMark,    ///< the mark of the record, centred
  kReason,  ///< why the file failed
};

/// A column of a result window: which item of the record it shows, and how.
struct ResultColumn {
  int item;
  std::string_view caption;
  ResultCell cell;
};

/// What differs between the two result windows.
struct ResultKind {
  std::string_view frm;  ///< the window's name
  std::string_view title;
  std::string_view count_words;  ///< stand before the number of records
  std::string_view description;  ///< of a row, before the change of its name
  Mark mark;                     ///< of every record
  int old_item;                  ///< the change of the name leads from this item
  int new_item;                  ///< to this one
  bool marks_old;                ///< the old name, too, is marked where it changes
  std::span<const ResultColumn> columns;

  std::size_t (*count)(const RunReports& reports);
  /// An item of a record; empty where the record has none.
  std::string_view (*item)(const RunReports& reports, std::size_t record, int item);
  /// Why the operation failed, a sentence; empty where that isn't known.
  std::string (*reason)(const RunReports& reports, std::size_t record);
  /// The path of the file that a record stands for, as it lies after the run.
  std::string (*file)(const RunReports& reports, std::size_t record);
};

/// The item that the rows are grouped by: the path of the folder.
inline constexpr int kResultPath = 0;

/// Files whose operation failed; they are where they were.
extern const ResultKind kRenamingFailure;
/// Files that got a numbered name; they are where the run has put them.
extern const ResultKind kResolvedConflicts;
