#pragma once

#include <string_view>

#include "filelist/record_list.h"
#include "rename/result_rows.h"

/// What differs between the two result windows.
struct ResultKind {
  std::string_view frm;  ///< the window's name
  std::string_view title;
  std::string_view count_words;  ///< stand before the number of records
  /// What its list shows of the reports.
  RecordSource (*source)(const RunReports& reports);
};

/// The column that the rows are grouped by: the path of the folder.
inline constexpr int kResultPath = 0;

/// Of a column that tells why files failed: room for most of the reasons.
ColumnWidth ReasonWidth();

/// Files whose operation failed; they are where they were.
extern const ResultKind kRenamingFailure;
/// Files that got a numbered name; they are where the run has put them.
extern const ResultKind kResolvedConflicts;
