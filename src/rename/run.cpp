#include "rename/run.h"

#include <cerrno>

#include "common/drives.h"
#include "common/path_text.h"
#include "platform/name_pattern.h"
#include "platform/text.h"
#include "rename/row_places.h"
#include "trace/err_trace.h"

namespace {

/// Why no file may get that name, whatever the file system says; else 0.
int ProblemOfName(std::string_view name) {
  if (name.empty()) return kEmptyName;
  return StaysInItsFolder(name) ? 0 : kNameHoldsSeparator;
}

}  // namespace

RenameRun::RenameRun(Pass& pass, const RunOutput& output, RunReports& reports)
    : pass_(pass),
      output_(output.chosen),
      fdSourceFolder_(output.fdSourceFolder),
      records_(pass.records),
      state_(pass.state),
      files_(pass.services.files),
      reports_(reports),
      numbering_(pass),
      freer_(pass, numbering_),
      folders_(pass, output) {}

bool RenameRun::RunRename() {
  return ErrTrace::inner("Form1.RunRename", [&] {
    ExpectKnownFolders(pass_);
    for (std::size_t i = 0; i < records_.Count(); ++i) {
      if (!pass_.GoOnAt(i)) break;
      Count(i);
      if (!records_[i].checked || records_[i].RowTag == 1) continue;
      ProcessRow(i);
      if (state_.gCancelRequested) break;
    }
    return !state_.gCancelRequested;
  });
}

void RenameRun::Count(std::size_t record) {
  ++state_.counts.passed;
  if (record >= state_.gRowCounted.size() || state_.gRowCounted[record] != 0) return;
  state_.gRowCounted[record] = 1;
  ++state_.panes.progressValue;
}

void RenameRun::ProcessRow(std::size_t record) {
  Begin(record);
  const int problem = Process(turn_);
  if (problem == 0) return Succeed(turn_);
  if (!state_.gCancelRequested) return Fail(turn_, problem);
  records_[record].ShowPlannedName();
}

void RenameRun::Begin(std::size_t record) {
  const FileRow& row = records_[record];
  turn_.record = record;
  turn_.source.assign(records_.Path(row)).append(row.sourceFileName);
  turn_.target_folder.clear();
  turn_.resolved = turn_.free = false;
  turn_.problem = 0;
}

/// 0 when the row's operation was done.
int RenameRun::Process(Turn& turn) {
  FileRow& row = records_[turn.record];
  if (const int problem = ProblemOfName(row.newFileName)) return problem;
  if (!IsOutputMode(output_.cmbDestination)) return kNoSuchMode;
  const OutputFolders::Folder& folder = folders_.Of(row);
  if (folder.problem != 0) return folder.problem;
  turn.target_folder = folder.path;
  const int folder_not_made = folder.not_made;
  if (RenameAtOnce(turn)) return 0;
  ResolveConflict(turn);
  if (state_.gCancelRequested) return ECANCELED;
  if (const int problem = ProblemOfName(row.newFileName)) return problem;
  const int problem = DoOperation(turn);
  return problem != 0 && folder_not_made != 0 ? folder_not_made : problem;
}

/// Most names are free, and the rename tells by itself when one isn't. Then all is looked at as if
/// nothing had been tried; and so, since what comes is likely as what was, are the next rows, until
/// a name is found free again. Of signs that stand for others the file system knows nothing.
bool RenameRun::RenameAtOnce(Turn& turn) {
  if (look_first_ || KeepsSource(output_.cmbDestination)) return false;
  FileRow& row = records_[turn.record];
  target_.assign(turn.target_folder).append(row.newFileName);
  const std::size_t name = target_.rfind(kNative.separator) + 1;
  if (HasWildcards(std::string_view(target_).substr(name))) return false;
  const Attempt attempt = files_.RenameKnown(turn.source, target_, row.fingerprint);
  if (attempt == Attempt::kFailed && files_.Problem() != EEXIST) turn.problem = files_.Problem();
  look_first_ = attempt != Attempt::kDone;
  if (!look_first_) numbering_.Freed(turn.source);
  return !look_first_;
}

void RenameRun::ResolveConflict(Turn& turn) {
  FileRow& row = records_[turn.record];
  const std::string target = turn.target_folder + row.newFileName;
  const bool may_stay = !KeepsSource(output_.cmbDestination);
  if (may_stay && turn.source == target) return;
  turn.free = !mScanCD::FileExist(files_, target);
  if (turn.free) {
    look_first_ = false;
    return;
  }
  turn.problem = 0;
  if (may_stay && IsOneEntry(files_, turn.source, target)) return;
  const std::string corrected = CorrectedName(turn);
  if (corrected.empty() || state_.numbering.gConflictAddNumber != 1) return;
  turn.planned = row.newFileName;
  row.SetPlannedName(turn.planned);
  row.newFileName = corrected;
  turn.resolved = turn.free = true;
}

/// The numbered name in place of a taken one; empty when the name was freed, or may not be
/// numbered.
std::string RenameRun::CorrectedName(Turn& turn) {
  const std::string& name = records_[turn.record].newFileName;
  const bool in_place = !AsksForFolder(output_.cmbDestination);
  const bool to_itself =
      !KeepsSource(output_.cmbDestination) && fdSourceFolder_ == output_.fdDestination;
  std::string corrected;
  if (in_place || to_itself) {
    const bool own_folder = in_place || output_.chDestinationSubfolders;
    const auto made_way = freer_.FindAndRename(
        own_folder ? records_.Path(records_[turn.record]) : output_.fdDestination, name, corrected);
    turn.free = made_way.has_value();
    if (made_way) folders_.RowChanged(*made_way);
  } else if (state_.numbering.gConflictAddNumber == 1) {
    numbering_.CreateUniqueName(turn.target_folder, name, corrected);
  }
  return corrected;
}

bool RenameRun::CopyMoveFile(const Turn& turn, const std::string& to, CopyIdentities& copied) {
  const GoOn go_on = [this] { return pass_.GoOn(); };
  const std::string& from = turn.source;
  if (KeepsSource(output_.cmbDestination)) return files_.CopyFile(from, to, go_on, &copied);
  Fingerprint& known = records_[turn.record].fingerprint;
  return turn.free ? files_.MoveKnown(from, to, go_on, known)
                   : files_.MoveFile(from, to, go_on, &known);
}

int RenameRun::DoOperation(const Turn& turn) {
  FileRow& row = records_[turn.record];
  const std::string target = turn.target_folder + row.newFileName;
  if (turn.problem != 0) return turn.problem;  // nothing was in its way
  CopyIdentities copied;
  if (!CopyMoveFile(turn, target, copied)) {
    const int problem = files_.Problem();
    return problem != 0 ? problem : kUnknownProblem;
  }
  if (KeepsSource(output_.cmbDestination)) {
    records_.SetMadeCopy(row, copied);
  } else if (turn.source != target) {
    numbering_.Freed(turn.source);
  }
  return 0;
}

/// The row plans what it planned, so that it can be tried again.
void RenameRun::Fail(const Turn& turn, int problem) {
  FileRow& row = records_[turn.record];
  reports_.gFailureReport.push_back(
      {records_.Path(row), row.sourceFileName, row.newFileName, problem});
  row.mark = Mark::kFailed;
  row.problem = static_cast<std::int16_t>(problem);
  row.ShowPlannedName();
}

void RenameRun::Succeed(const Turn& turn) {
  ++state_.counts.done;
  FileRow& row = records_[turn.record];
  row.KeepRollback();
  if (!KeepsSource(output_.cmbDestination)) row.ShowRollbackName();
  row.RowTag = 1;
  row.mark = Mark::kDone;
  row.problem = 0;
  if (AsksForFolder(output_.cmbDestination)) records_.SetNewPath(row, turn.target_folder);
  if (turn.resolved) {
    reports_.gConflictReport.push_back({records_.Path(row), records_.NewPath(row),
                                        row.sourceFileName, row.newFileName, turn.planned});
  }
  row.mode = static_cast<std::int8_t>(output_.cmbDestination);
  folders_.RowChanged(turn.record);
}
