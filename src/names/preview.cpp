#include "names/preview.h"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <vector>

#include "core/long_pass.h"
#include "names/name_composer.h"
#include "trace/err_trace.h"

namespace {

/// The counters among the elements, with their running values.
class Counters {
 public:
  explicit Counters(Constructor& constructor) {
    for (ConstrItem& item : constructor.ArrConstr) {
      if (item.ItemType == kCounter) items_.push_back(&item.counter);
    }
    for (CounterOptions* item : items_) item->Value = item->Start;
  }

  void StartGroup() {
    for (CounterOptions* item : items_) {
      if (item->Reset == 1) item->Value = item->Start;
    }
  }

  void Step() {
    for (CounterOptions* item : items_) {
      if (item->Value == std::numeric_limits<std::int32_t>::max()) {
        throw Failure(kOverflow, "Overflow");
      }
      ++item->Value;
    }
  }

 private:
  std::vector<CounterOptions*> items_;
};

void PreviewRow(FileRow& row, const Records& records, NameComposer& composer) {
  if (row.RowTag == 1) return;
  if (row.mark == Mark::kDone) row.mark = Mark::kWaiting;
  row.newFileName.clear();
  if (!row.PlannedName().empty()) row.SetPlannedName("");
  if (!row.checked) return;
  // A file that was moved aside bears a name that nobody gave it.
  const std::string_view former = row.Rollback();
  row.newFileName = composer.Compose({.file_name = former.empty() ? row.sourceFileName : former,
                                      .folder_name = records.ParentName(row),
                                      .date = row.date});
}

}  // namespace

bool SetPreview(const PreviewParts& parts) {
  return ErrTrace::inner("Form1.SetPreview", [&] {
    Grid& grid = parts.grid;
    Records& records = grid.AllRecords();
    Counters counters(parts.constructor);
    NameComposer composer(parts.constructor, parts.clock, parts.locale);
    LongPass pass(grid.RowCount(), parts.state, parts.events, parts.clock);
    for (std::size_t i = 0; i < grid.RowCount(); ++i) {
      if (!pass.GoOnAt(i)) return false;
      ++parts.state.panes.progressValue;
      if (grid.IsGroupRow(i)) {
        counters.StartGroup();
        continue;
      }
      FileRow& row = records[grid.RecordOf(i)];
      PreviewRow(row, records, composer);
      if (row.checked) counters.Step();
    }
    return true;
  });
}
