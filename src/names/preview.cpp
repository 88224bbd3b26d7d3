#include "names/preview.h"

#include <cstddef>
#include <string>

#include "names/counters.h"
#include "names/name_composer.h"
#include "trace/err_trace.h"

namespace {

void PreviewRow(FileRow& row, const Records& records, NameComposer& composer) {
  if (row.RowTag == 1) return;
  if (row.mark == Mark::kDone) row.mark = Mark::kWaiting;
  row.newFileName.clear();
  if (!row.PlannedName().empty()) row.SetPlannedName("");
  // A string of its own has no room to spare.
  if (IsToBeNamed(row)) row.newFileName = std::string(composer.Compose(SourceOf(row, records)));
}

}  // namespace

bool SetPreview(Pass& pass, const Grid& grid, Constructor& constructor, std::size_t name_bytes) {
  return ErrTrace::inner("Form1.SetPreview", [&] {
    Counters counters(constructor);
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
      counters.Step(pass.services.locale);
      if (row.RowTag != 1) names.Add(row);
    }
    pass.state.names = names;
    return true;
  });
}
