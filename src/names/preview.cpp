#include "names/preview.h"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <vector>

#include "common/language.h"
#include "common/size_text.h"
#include "names/name_composer.h"
#include "trace/err_trace.h"

namespace {

constexpr std::int32_t kLargest = std::numeric_limits<std::int32_t>::max();

[[noreturn]] void FailCounting(std::int32_t start, const LocaleFacts& locale) {
  using namespace mLanguageGobals;
  throw Failure({.number = kOverflow,
                 .description = "Overflow",
                 .slip = std::string(kCounterFrom)
                             .append(mCommon::SizeCorrectView(start, 0, locale))
                             .append(kPasses)
                             .append(mCommon::SizeCorrectView(kLargest, 0, locale))
                             .append(kStartLower)});
}

/// The counters among the elements, with their running values.
class Counters {
 public:
  Counters(Constructor& constructor, const LocaleFacts& locale) : locale_(locale) {
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
      if (item->Value == kLargest) FailCounting(item->Start, locale_);
      ++item->Value;
    }
  }

 private:
  const LocaleFacts& locale_;
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

bool SetPreview(Pass& pass, const Grid& grid, Constructor& constructor, std::size_t name_bytes) {
  return ErrTrace::inner("Form1.SetPreview", [&] {
    Counters counters(constructor, pass.services.locale);
    NameTally names{name_bytes};
    NameComposer composer(constructor, pass.services.clock, pass.services.locale);
    for (std::size_t i = 0; i < grid.RowCount(); ++i) {
      if (!pass.GoOnAt(i)) return false;
      ++pass.state.panes.progressValue;
      if (grid.IsGroupRow(i)) {
        counters.StartGroup();
        continue;
      }
      ++pass.state.counts.passed;
      FileRow& row = pass.records[grid.RecordOf(i)];
      PreviewRow(row, pass.records, composer);
      if (!row.checked) continue;
      counters.Step();
      if (row.RowTag != 1) names.Add(row);
    }
    pass.state.names = names;
    return true;
  });
}
