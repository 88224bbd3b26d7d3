#include "rename/results/result_kinds.h"

#include <cerrno>
#include <string>

#include "common/problem_text.h"
#include "filelist/row_paths.h"

namespace {

template <class Record>
ListColumn PathColumn(const std::vector<Record>& rows) {
  const auto path = FieldsOf(rows)(&Record::path);
  const auto by_path = [&rows, path] { return ShareTexts(rows.size(), path); };
  return {"Path", Cell::kHidden, kNameWidth, path, by_path, {}, true};
}

ListColumn NameColumn(std::string_view caption, Cell cell, const TextOf& name) {
  const auto text = [name](std::size_t record) { return std::string(name(record)); };
  return {caption, cell, kNameWidth, text, ByText(name)};
}

ListColumn MarkColumn(std::string_view caption, Cell cell, Mark mark) {
  return {caption, cell, kMarkWidth, [mark](std::size_t) { return std::string(MarkText(mark)); }};
}

RecordSource Failures(const RunReports& reports) {
  using Row = FailureRecord;
  const std::vector<Row>& rows = reports.gFailureReport;
  const auto of = FieldsOf(rows);
  const auto reason = [](const Row& row) { return mCommon::ProblemText(row.problem); };
  const auto facts = [](const Row& row) {
    return RecordFacts{"failed", Mark::kFailed, row.problem, row.source_name, row.new_name};
  };
  return {{
              PathColumn(rows),
              NameColumn("Source file name", Cell::kOldName, of(&Row::source_name)),
              MarkColumn("Date", Cell::kHidden, Mark::kFailed),
              MarkColumn(">>", Cell::kMark, Mark::kFailed),
              NameColumn("New file name", Cell::kNewName, of(&Row::new_name)),
              {"Folder", Cell::kHidden},
              {"Rollback", Cell::kHidden},
              {"Reason", Cell::kText, ReasonWidth(), of(reason)},
          },
          [&rows] { return rows.size(); },
          of(facts),
          of([](const Row& row) { return row.path + row.source_name; })};
}

RecordSource Conflicts(const RunReports& reports) {
  using Row = ConflictRecord;
  const std::vector<Row>& rows = reports.gConflictReport;
  const auto of = FieldsOf(rows);
  const auto facts = [](const Row& row) {
    return RecordFacts{"planned name taken", Mark::kWaiting, 0, row.planned_name, row.final_name};
  };
  return {{
              PathColumn(rows),
              NameColumn("Source file name", Cell::kText, of(&Row::source_name)),
              MarkColumn(">>", Cell::kMark, Mark::kWaiting),
              NameColumn("Planned file name", Cell::kText, of(&Row::planned_name)),
              MarkColumn(">>", Cell::kMark, Mark::kWaiting),
              NameColumn("Final file name", Cell::kNewName, of(&Row::final_name)),
              {"NewPath", Cell::kHidden, kNameWidth, of(&Row::new_path)},
          },
          [&rows] { return rows.size(); },
          of(facts),
          of([](const Row& row) {
            return std::string(FolderAfterRun(row.path, row.new_path)).append(row.final_name);
          })};
}

}  // namespace

ColumnWidth ReasonWidth() {
  ColumnWidth width{WidthRule::kFree, 0, {}, 2 * kCellInset + 2};  // told in whole pixels
  for (const int usual : {EACCES, ENOENT, ENAMETOOLONG}) {
    width.texts.push_back(mCommon::ProblemText(usual));
  }
  return width;
}

const ResultKind kRenamingFailure = {"Form3", "Renaming failure",
                                     "Number of files failed to rename: ", Failures};

const ResultKind kResolvedConflicts = {"Form7", "Resolved conflicts",
                                       "Number of resolved conflicts: ", Conflicts};
