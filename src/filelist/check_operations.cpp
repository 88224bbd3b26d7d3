#include "filelist/check_operations.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

#include "filelist/masks.h"

namespace {

/// Displayed rows, `end` not among them; group rows may be.
struct RowSpan {
  std::size_t begin;
  std::size_t end;
};

/// The files of the groups that the selected rows stand for. Inverting counts how often a group is
/// stood for; to any other end once is enough, and a whole list may be selected.
std::vector<RowSpan> GroupsOf(const Grid& grid, const std::vector<int>& selected, CheckTo to) {
  std::vector<RowSpan> spans;
  if (grid.RowCount() == 0 || !grid.IsGroupRow(0)) return spans;
  for (std::size_t i = 0; i < selected.size();) {
    const GroupedRows::Group& group = grid.Rows().GroupOf(static_cast<std::size_t>(selected[i]));
    const RowSpan files{group.row + 1, group.row + 1 + group.file_count};
    const std::size_t first = i;
    while (i < selected.size() && static_cast<std::size_t>(selected[i]) < files.end) ++i;
    const bool undone_by_itself = to == CheckTo::kOpposite && (i - first) % 2 == 0;
    if (!undone_by_itself) spans.push_back(files);
  }
  return spans;
}

bool NewState(CheckTo to, bool checked) {
  return to == CheckTo::kOpposite ? !checked : to == CheckTo::kOn;
}

}  // namespace

const CheckOperation* FindCheckOperation(int id) {
  const auto row = std::ranges::find(kCheckOperations, id, &CheckOperation::id);
  return row == std::end(kCheckOperations) ? nullptr : row;
}

void SetCheckBoxes(const CheckOperation& operation, Grid& grid, const std::vector<int>& selected,
                   std::string_view mask) {
  Records& records = grid.AllRecords();
  const std::vector<RowSpan> spans = operation.in_group
                                         ? GroupsOf(grid, selected, operation.to)
                                         : std::vector<RowSpan>{{0, grid.RowCount()}};
  const MaskList masks(mask);
  std::vector<std::size_t> chosen;  // first all of them, for a mask may fail on the way
  for (const RowSpan& span : spans) {
    for (std::size_t row = span.begin; row < span.end; ++row) {
      if (grid.IsGroupRow(row)) continue;
      const std::size_t record = grid.RecordOf(row);
      if (operation.by_mask && !masks.Matches(records[record].sourceFileName)) continue;
      chosen.push_back(record);
    }
  }
  for (const std::size_t record : chosen) {
    FileRow& row = records[record];
    row.checked = NewState(operation.to, row.checked);
  }
  if (grid.RowCount() > 0) grid.Ticks().TicksChanged(0, grid.RowCount() - 1);
}
