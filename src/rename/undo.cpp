#include "rename/undo.h"

#include <cerrno>
#include <utility>
#include <vector>

#include "common/path_text.h"
#include "rename/output_folders.h"
#include "settings/output_modes.h"
#include "trace/err_trace.h"

UndoRun::UndoRun(Pass& pass, RunReports& reports)
    : pass_(pass),
      records_(pass.records),
      state_(pass.state),
      files_(pass.services.files),
      reports_(reports),
      numbering_(pass),
      freer_(pass, numbering_) {}

bool UndoRun::Undo() {
  ExpectKnownFolders(pass_);
  for (std::size_t i = 0; i < records_.Count(); ++i) {
    if (!pass_.GoOnAt(i)) return false;
    CountDown(i);
    if (records_[i].TakesPartInUndo()) {
      UndoRow(i);
      if (state_.gCancelRequested) return false;
    }
    if (records_[i].mark != Mark::kFailed) continue;
    records_[i].mark = Mark::kWaiting;
    if (!records_[i].TakesPartInUndo()) records_[i].problem = 0;
  }
  if (!RemoveMadeFolders()) return false;
  // The next run may use other folders of these names.
  if (reports_.gFailureReport.empty()) records_.used_folders.clear();
  return true;
}

void UndoRun::CountDown(std::size_t record) {
  ++state_.counts.passed;
  if (record >= state_.gRowCounted.size() || state_.gRowCounted[record] != 1) return;
  state_.gRowCounted[record] = 0;
  --state_.panes.progressValue;
}

void UndoRun::UndoRow(std::size_t record) {
  FileRow& row = records_[record];
  if (row.RowTag == 1 && !IsOutputMode(row.mode)) return;
  const bool done = TakeBack(record);
  state_.counts.done += done;
  if (done || state_.gCancelRequested) return;
  row.problem = static_cast<std::int16_t>(problem_);
  reports_.gFailureReport.push_back(
      {records_.Path(row), row.sourceFileName, std::string(row.Rollback()), problem_});
}

/// A done operation first, then a file that was moved aside; a copy of such a file needs both.
bool UndoRun::TakeBack(std::size_t record) {
  FileRow& row = records_[record];
  if (row.RowTag == 1 && !TakeBackDone(record)) return false;
  if (row.sourceFileName != row.Rollback() && !MoveBack(record, RowFile::kSource)) return false;
  row.ShowRollbackName();
  row.ClearRollback();
  row.mark = Mark::kWaiting;
  row.problem = 0;
  return true;
}

/// Afterwards the row is as after a preview, but for the name of a file that was moved aside.
bool UndoRun::TakeBackDone(std::size_t record) {
  FileRow& row = records_[record];
  const bool copied = KeepsSource(row.mode);
  if (!(copied ? DeleteCopy(row) : MoveBack(record, RowFile::kResult))) return false;
  row.ShowTemp();
  row.ShowPlannedName();
  if (!copied) row.ShowRollbackName();
  row.RowTag = 0;
  records_.SetNewPath(row, "");
  row.mode = -1;
  row.mark = Mark::kWaiting;
  return true;
}

/// Not while the copy is all that is left of its file.
bool UndoRun::DeleteCopy(const FileRow& row) {
  const CopyIdentities& copied = records_.MadeCopy(row);
  if (!files_.IsVeryFile(records_.Path(row) + row.sourceFileName, copied.source)) {
    problem_ = kOriginalGone;
    return false;
  }
  const std::string present = PlaceOf(records_, row, RowFile::kResult)->Path();
  if (!files_.DeleteMadeFile(present, copied.made)) {
    problem_ = files_.Problem();
    return false;
  }
  numbering_.Freed(present);
  return true;
}

bool UndoRun::MoveBack(std::size_t record, RowFile file) {
  const FileRow& row = records_[record];
  const std::string present = PlaceOf(records_, row, file)->Path();
  const std::string former = FormerPlace(records_, row).Path();
  if (!Return(record, present, former)) return false;
  if (present != former) numbering_.Freed(present);
  return true;
}

/// At once where that may be, as in the run; most former names are free. Copies never go this way,
/// so the file is the one that its row knows.
bool UndoRun::Return(std::size_t record, const std::string& present, const std::string& former) {
  Fingerprint& known = records_[record].fingerprint;
  bool free = false;
  if (present != former) {
    Attempt attempt = Attempt::kLookFirst;
    if (!look_first_) attempt = files_.RenameKnown(present, former, known);
    if (attempt == Attempt::kDone) return true;
    if (attempt == Attempt::kFailed) problem_ = files_.Problem();
    look_first_ = files_.Look(former).has_value();
    free = !look_first_;
    if (free && attempt == Attempt::kFailed && problem_ != EEXIST) return false;
    if (look_first_ && !IsOneEntry(files_, present, former)) free = freer_.FindAndRename(record);
    if (state_.gCancelRequested) return false;
  }
  const GoOn go_on = [this] { return pass_.GoOn(); };
  const bool done = free ? files_.MoveKnown(present, former, go_on, known)
                         : files_.MoveFile(present, former, go_on, &known);
  if (!done) problem_ = files_.Problem();
  return done;
}

/// The last made first, since it may lie in one made before it. What can't go now is tried again by
/// the next undo. False when the user cancelled.
bool UndoRun::RemoveMadeFolders() {
  std::vector<Records::MadeFolder>& made = records_.made_folders;
  for (std::size_t i = made.size(); i-- > 0;) {
    if (!pass_.GoOn()) return false;
    if (!files_.DeleteMadeFolder(made[i].path, made[i].identity)) continue;
    records_.used_folders.erase(made[i].path + kNative.separator);
    made.erase(made.begin() + static_cast<std::ptrdiff_t>(i));
  }
  return true;
}

void EmptyRollback(Records& records) {
  ErrTrace::inner("Form1.EmptyRollback", [&] {
    for (std::size_t i = 0; i < records.Count(); ++i) {
      records[i].RowTag = 0;
      records[i].ClearRollback();
      records[i].mark = Mark::kEmptied;
    }
  });
}
