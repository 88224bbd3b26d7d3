#include "filelist/grid.h"

#include "filelist/row_paths.h"
#include "settings/option_table.h"

namespace {

static_assert(std::size(kGroupColumns) == option_table::kLastGrouping + 1, "what may be stored");

SharedTexts Folders(const Records& records) {
  return {records.FolderCount(), [&](std::size_t i) { return records[i].folder; },
          [&](std::uint32_t number) { return std::string_view(records.FolderPath(number)); }};
}

SharedTexts Types(const Records& records) {
  return {records.TextCount(), [&](std::size_t i) { return records[i].type; },
          [&](std::uint32_t number) { return std::string_view(records.TextAt(number)); }};
}

std::string SizeText(const FileRow& row) {
  return std::to_string(static_cast<std::uint64_t>(row.size));
}

std::string DateText(const FileRow& row) {
  return row.date.Text();
}

double DateNumber(const FileRow& row) {
  return static_cast<double>(row.date.Digits());
}

std::string MarkOf(const FileRow& row) {
  return std::string(MarkText(row.mark));
}

constexpr int kAir = 16;
const ColumnWidth kSizeWidth{WidthRule::kFree, 80, {"00000000"}, kAir};
const ColumnWidth kTypeWidth{WidthRule::kFree, 100, {"JPEG image"}, kAir};
const ColumnWidth kDateWidth{WidthRule::kFree, 0, {"0000.00.00 00:00:00"}, kAir};

/// In the order of `Column`.
std::vector<ListColumn> FileColumns(const Records& records) {
  const auto of = FieldsOf(records);
  const auto path = of([&](const FileRow& row) { return records.Path(row); });
  const auto type = of([&](const FileRow& row) { return records.Type(row); });
  const auto by_folder = [&] { return Folders(records); };
  const auto by_type = [&] { return Types(records); };
  const auto source = of(&FileRow::sourceFileName);
  const auto target = of(&FileRow::newFileName);
  return {
      {"Path",
       Cell::kText,
       {WidthRule::kFree, 300, {}, 0, 60},
       path,
       by_folder,
       {"chColumnPath", &ListOptions::chColumnPath, Keys::kColumnPath},
       true},
      {"Size",
       Cell::kNumber,
       kSizeWidth,
       of(SizeText),
       ByNumber(of(&FileRow::size)),
       {"chColumnSize", &ListOptions::chColumnSize, Keys::kColumnSize}},
      {"Type",
       Cell::kText,
       kTypeWidth,
       type,
       by_type,
       {"chColumnType", &ListOptions::chColumnType, Keys::kColumnType}},
      {"Date",
       Cell::kText,
       kDateWidth,
       of(DateText),
       ByNumber(of(DateNumber)),
       {"chColumnDate", &ListOptions::chColumnDate, Keys::kColumnDate}},
      {"", Cell::kCheck, {WidthRule::kFixed, 28}},
      {"Source file name", Cell::kOldName, kNameWidth, source, ByText(source)},
      {">>", Cell::kMark, kMarkWidth, of(MarkOf)},
      {"New file name", Cell::kNewName, kNameWidth, target, ByText(target)},
  };
}

RecordFacts FactsOf(const Records& records, std::size_t record, const RunState* state) {
  const FileRow& row = records[record];
  static constexpr std::string_view kStates[] = {"waiting", "done", "failed", "waiting"};
  const bool not_undone = row.mark != Mark::kFailed && row.problem != 0;
  RecordFacts facts{not_undone ? "not undone" : kStates[static_cast<int>(row.mark)],
                    row.mark,
                    row.problem,
                    row.sourceFileName,
                    {},
                    row.checked};
  if (!row.newFileName.empty()) facts.new_name = row.newFileName;
  facts.settled = row.RowTag == 1;
  if (state != nullptr && state->names.limit != 0 && !state->NamesAreDrafts()) {
    facts.verdict = JudgeNewName(row, state->names.limit);
    const NameProblem foretold = state->foretold ? state->foretold(record) : NameProblem::kNone;
    const NameProblem seen = facts.verdict.problem;
    const bool comes_first = seen == NameProblem::kNone || foretold < seen;
    if (foretold != NameProblem::kNone && comes_first) facts.verdict = {foretold};
  }
  return facts;
}

RecordSource FileSource(Records& records, const RunState* state) {
  return {FileColumns(records),
          [&] { return records.Count(); },
          [&records, state](std::size_t i) { return FactsOf(records, i, state); },
          [&](std::size_t i) { return PathOfRow(records, records[i]); },
          [&](std::size_t i, bool checked) { records[i].checked = checked; },
          [state] { return state != nullptr && state->NamesAreDrafts(); }};
}

}  // namespace

Grid::Grid(Records& records, const RunState* state)
    : records_(records), list_(FileSource(records, state)) {
  SetGroupsOrder(GroupBy::kPath);
}
