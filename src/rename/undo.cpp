#include "rename/undo.h"

#include "common/drives.h"
#include "platform/text.h"
#include "trace/err_trace.h"

UndoRun::UndoRun(const OutputOptions& output, Records& records, RunState& state, FileSystem& files,
                 EventPump& events, Clock& clock, RunReports& reports)
    : records_(records),
      state_(state),
      files_(files),
      reports_(reports),
      pass_(records.Count(), state, events, clock),
      numbering_(state, files, [this] { return pass_.GoOn(); }),
      freer_(
          output.cmbDestination == kMoveTo ? NameFreer::Pass::kUndoAnyPath : NameFreer::Pass::kUndo,
          records, files, numbering_) {}

void UndoRun::Undo() {
  for (std::size_t i = 0; i < records_.Count(); ++i) {
    if (!pass_.GoOnAt(i)) return;
    CountDown(i);
    if (records_[i].RowTag == 1 || !records_[i].Rollback().empty()) {
      UndoRow(i);
      if (state_.gCancelRequested) return;
    }
    if (records_[i].mark == Mark::kFailed) records_[i].mark = Mark::kWaiting;
  }
}

void UndoRun::CountDown(std::size_t record) {
  if (record >= state_.gRowCounted.size() || state_.gRowCounted[record] != 1) return;
  state_.gRowCounted[record] = 0;
  --state_.panes.progressValue;
}

void UndoRun::UndoRow(std::size_t record) {
  const FileRow& row = records_[record];
  if (row.RowTag == 1 && (row.mode < kUseSourceFolder || row.mode > kMoveTo)) return;
  if (TakeBack(row)) {
    Restore(record);
  } else if (!state_.gCancelRequested) {
    reports_.gFailureReport.push_back(
        {records_.Path(row), row.sourceFileName, std::string(row.Rollback())});
  }
}

bool UndoRun::TakeBack(const FileRow& row) {
  if (row.RowTag != 1) return TakeBackAside(row);
  if (row.mode == kCopyTo) return TakeBackCopy(row);
  return row.mode == kMoveTo ? TakeBackMove(row) : TakeBackRename(row);
}

/// The file was moved aside and its own turn failed or never came.
bool UndoRun::TakeBackAside(const FileRow& row) {
  const std::string& folder = records_.Path(row);
  return Move(folder + row.sourceFileName, folder + std::string(row.Rollback()));
}

bool UndoRun::TakeBackRename(const FileRow& row) {
  const std::string& folder = records_.Path(row);
  return MoveBack(folder, folder + row.newFileName, true, row);
}

bool UndoRun::TakeBackCopy(const FileRow& row) {
  const std::string present = records_.NewPath(row) + row.newFileName;
  if (!files_.DeleteMadeFile(present, records_.MadeCopy(row).made)) return false;
  numbering_.Freed(present);
  return true;
}

bool UndoRun::TakeBackMove(const FileRow& row) {
  const std::string& folder = records_.Path(row);
  const std::string& output = records_.NewPath(row);
  return MoveBack(folder, output + row.newFileName, text::EqualIgnoringCase(folder, output), row);
}

bool UndoRun::MoveBack(const std::string& folder, const std::string& present, bool free_former,
                       const FileRow& row) {
  const std::string former_name(row.Rollback());
  const std::string former = folder + former_name;
  if (free_former && !text::EqualIgnoringCase(former, present) &&
      mScanCD::FileExist(files_, former)) {
    std::string unused;
    freer_.FindAndRename(folder, former_name, unused);
    if (state_.gCancelRequested) return false;
  }
  return Move(present, former);
}

bool UndoRun::Move(const std::string& from, const std::string& to) {
  if (!files_.MoveFile(from, to, [this] { return pass_.GoOn(); })) return false;
  if (from != to) numbering_.Freed(from);
  return true;
}

/// The row is as after a preview again.
void UndoRun::Restore(std::size_t record) {
  FileRow& row = records_[record];
  if (!row.Temp().empty()) {
    row.newFileName = row.Temp();
    row.SetTemp("");
  }
  if (!row.PlannedName().empty()) {
    row.newFileName = row.PlannedName();
    row.SetPlannedName("");
  }
  if (row.RowTag != 1) row.ShowRollbackName();
  row.RowTag = 0;
  row.ClearRollback();
  records_.SetNewPath(row, "");
  row.mode = -1;
  row.mark = Mark::kWaiting;
}

void EmptyRollback(Records& records) {
  ErrTrace::inner<"Form1.EmptyRollback">(ErrTrace::args(), [&] {
    for (std::size_t i = 0; i < records.Count(); ++i) {
      records[i].RowTag = 0;
      records[i].ClearRollback();
      records[i].mark = Mark::kEmptied;
    }
  });
}
