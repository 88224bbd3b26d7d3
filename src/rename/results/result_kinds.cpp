#include "rename/results/result_kinds.h"

#include "common/problem_text.h"

namespace {

constexpr ResultColumn kFailureColumns[] = {
    {0, "Path", ResultCell::kHidden},        {1, "Source file name", ResultCell::kName},
    {2, "Date", ResultCell::kHidden},        {2, ">>", ResultCell::kMark},
    {3, "New file name", ResultCell::kName}, {5, "Folder", ResultCell::kHidden},
    {6, "Rollback", ResultCell::kHidden},    {7, "Reason", ResultCell::kReason},
};

constexpr ResultColumn kConflictColumns[] = {
    {0, "Path", ResultCell::kHidden},    {1, "Source file name", ResultCell::kName},
    {2, ">>", ResultCell::kMark},        {3, "Planned file name", ResultCell::kName},
    {4, ">>", ResultCell::kMark},        {5, "Final file name", ResultCell::kName},
    {6, "NewPath", ResultCell::kHidden},
};

std::size_t FailureCount(const RunReports& reports) {
  return reports.gFailureReport.size();
}

std::string_view FailureItem(const RunReports& reports, std::size_t record, int item) {
  const FailureRecord& row = reports.gFailureReport[record];
  switch (item) {
    case 0:
      return row.path;
    case 1:
      return row.source_name;
    case 2:
      return MarkText(Mark::kFailed);
    case 3:
      return row.new_name;
    default:
      return {};
  }
}

std::string FailureReason(const RunReports& reports, std::size_t record) {
  return mCommon::ProblemText(reports.gFailureReport[record].problem);
}

std::string FailureFile(const RunReports& reports, std::size_t record) {
  const FailureRecord& row = reports.gFailureReport[record];
  return row.path + row.source_name;
}

std::size_t ConflictCount(const RunReports& reports) {
  return reports.gConflictReport.size();
}

std::string_view ConflictItem(const RunReports& reports, std::size_t record, int item) {
  const ConflictRecord& row = reports.gConflictReport[record];
  switch (item) {
    case 0:
      return row.path;
    case 1:
      return row.source_name;
    case 2:
    case 4:
      return MarkText(Mark::kWaiting);
    case 3:
      return row.planned_name;
    case 5:
      return row.final_name;
    case 6:
      return row.new_path;
    default:
      return {};
  }
}

std::string NoReason(const RunReports&, std::size_t) {
  return {};
}

std::string ConflictFile(const RunReports& reports, std::size_t record) {
  const ConflictRecord& row = reports.gConflictReport[record];
  return (row.new_path.empty() ? row.path : row.new_path) + row.final_name;
}

}  // namespace

const ResultKind kRenamingFailure = {
    "Form3",
    "Renaming failure",
    "Number of files failed to rename: ",
    "failed",
    Mark::kFailed,
    1,
    3,
    true,
    kFailureColumns,
    FailureCount,
    FailureItem,
    FailureReason,
    FailureFile,
};

const ResultKind kResolvedConflicts = {
    "Form7",
    "Resolved conflicts",
    "Number of resolved conflicts: ",
    "planned name taken",
    Mark::kWaiting,
    3,
    5,
    false,
    kConflictColumns,
    ConflictCount,
    ConflictItem,
    NoReason,
    ConflictFile,
};
