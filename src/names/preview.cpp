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
      if (item.ItemType == kCounter) items_.push_back(&item);
    }
    for (ConstrItem* item : items_) item->CounterValue = item->CounterStart;
  }

  void StartGroup() {
    for (ConstrItem* item : items_) {
      if (item->ResetCounter == 1) item->CounterValue = item->CounterStart;
    }
  }

  void Step() {
    for (ConstrItem* item : items_) {
      if (item->CounterValue == std::numeric_limits<std::int32_t>::max()) {
        throw Failure(kOverflow, "Overflow");
      }
      ++item->CounterValue;
    }
  }

 private:
  std::vector<ConstrItem*> items_;
};

void PreviewRow(FileRow& row, const Records& records, NameComposer& composer) {
  if (row.RowTag == 1) return;
  if (row.mark == Mark::kDone) row.mark = Mark::kWaiting;
  row.newFileName.clear();
  if (!row.PlannedName().empty()) row.SetPlannedName("");
  if (!row.checked) return;
  // A file that was moved aside bears a name that nobody gave it.
  const std::string_view former = row.Rollback();
  row.newFileName = composer.Compose(former.empty() ? row.sourceFileName : former,
                                     records.ParentName(row), row.date);
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
