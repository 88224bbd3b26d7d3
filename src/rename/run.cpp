#include "rename/run.h"

#include "common/drives.h"
#include "common/path_text.h"
#include "platform/text.h"
#include "rename/folder_path.h"
#include "trace/err_trace.h"

RenameRun::RenameRun(const OutputOptions& output, Records& records, RunState& state,
                     FileSystem& files, EventPump& events, Clock& clock, RunReports& reports)
    : output_(output),
      records_(records),
      state_(state),
      files_(files),
      reports_(reports),
      pass_(records.Count(), state, events, clock),
      numbering_(state, files, [this] { return pass_.GoOn(); }),
      freer_(NameFreer::Pass::kRun, records, files, numbering_) {}

void RenameRun::RunRename() {
  ErrTrace::inner<"Form1.RunRename">(ErrTrace::args(), [&] {
    for (std::size_t i = 0; i < records_.Count(); ++i) {
      if (!pass_.GoOnAt(i)) return;
      Count(i);
      if (!records_[i].checked || records_[i].RowTag == 1) continue;
      ProcessRow(i);
      if (state_.gCancelRequested) return;
    }
  });
}

void RenameRun::Count(std::size_t record) {
  if (record >= state_.gRowCounted.size() || state_.gRowCounted[record] != 0) return;
  state_.gRowCounted[record] = 1;
  ++state_.panes.progressValue;
}

void RenameRun::ProcessRow(std::size_t record) {
  FileRow& row = records_[record];
  Turn turn{record, records_.Path(row) + row.sourceFileName, TargetFolder(row), row.newFileName};
  const std::string planned_before(row.PlannedName());
  if (HasUsableTarget(turn)) ResolveConflict(turn);
  if (!state_.gCancelRequested && HasUsableTarget(turn) && DoOperation(turn)) {
    Succeed(turn);
  } else if (state_.gCancelRequested) {
    row.newFileName = turn.planned;
    if (turn.resolved) row.SetPlannedName(planned_before);
  } else {
    Fail(turn);
  }
}

/// A name with a separator would lead into another folder; a relative output folder would lead to
/// wherever the program happens to have been started.
bool RenameRun::HasUsableTarget(const Turn& turn) const {
  return StaysInItsFolder(records_[turn.record].newFileName) &&
         (output_.cmbDestination == kUseSourceFolder || mMain::IsAbsolutePath(turn.target_folder));
}

std::string RenameRun::TargetFolder(const FileRow& row) {
  const std::string& path = records_.Path(row);
  if (output_.cmbDestination == kUseSourceFolder) return path;
  std::string folder =
      output_.chDestinationSubfolders
          ? mMain::ReplacePathText(path, output_.fdSourceFolder, output_.fdDestination)
          : output_.fdDestination;
  const std::string_view bare = mMain::GetPathWithNoSlash(folder);
  if (!mScanCD::FolderExist(files_, bare)) CreateFolderPath(files_, bare);
  return folder;
}

void RenameRun::ResolveConflict(Turn& turn) {
  FileRow& row = records_[turn.record];
  const std::string target = turn.target_folder + row.newFileName;
  if (output_.cmbDestination != kCopyTo && text::EqualIgnoringCase(turn.source, target)) return;
  if (!mScanCD::FileExist(files_, target)) return;
  const std::string corrected = CorrectedName(turn);
  if (corrected.empty() || state_.gConflictAddNumber != 1) return;
  row.SetPlannedName(turn.planned);
  row.newFileName = corrected;
  turn.resolved = true;
}

/// The numbered name in place of a taken one; empty when the name was freed, or may not be
/// numbered.
std::string RenameRun::CorrectedName(const Turn& turn) {
  const std::string& name = records_[turn.record].newFileName;
  const bool to_itself =
      output_.cmbDestination == kMoveTo && output_.fdSourceFolder == output_.fdDestination;
  std::string corrected;
  if (output_.cmbDestination == kUseSourceFolder || to_itself) {
    const bool own_folder =
        output_.cmbDestination == kUseSourceFolder || output_.chDestinationSubfolders;
    freer_.FindAndRename(own_folder ? records_.Path(records_[turn.record]) : output_.fdDestination,
                         name, corrected);
  } else if (state_.gConflictAddNumber == 1) {
    numbering_.CreateUniqueName(turn.target_folder, name, corrected);
  }
  return corrected;
}

bool RenameRun::CopyMoveFile(const std::string& from, const std::string& to,
                             CopyIdentities& copied) {
  const GoOn go_on = [this] { return pass_.GoOn(); };
  switch (output_.cmbDestination) {
    case kUseSourceFolder:
    case kMoveTo:
      return files_.MoveFile(from, to, go_on);
    case kCopyTo:
      return files_.CopyFile(from, to, go_on, &copied);
    default:
      return false;
  }
}

bool RenameRun::DoOperation(const Turn& turn) {
  FileRow& row = records_[turn.record];
  const std::string target = turn.target_folder + row.newFileName;
  CopyIdentities copied;
  if (!CopyMoveFile(turn.source, target, copied)) return false;
  if (output_.cmbDestination == kCopyTo) {
    records_.SetMadeCopy(row, copied);
  } else if (turn.source != target) {
    numbering_.Freed(turn.source);
  }
  return true;
}

void RenameRun::Fail(const Turn& turn) {
  FileRow& row = records_[turn.record];
  reports_.gFailureReport.push_back({records_.Path(row), row.sourceFileName, row.newFileName});
  row.mark = Mark::kFailed;
}

void RenameRun::Succeed(const Turn& turn) {
  FileRow& row = records_[turn.record];
  if (row.Rollback().empty()) {
    row.KeepRollback();
  } else {
    row.ShowRollbackName();
    freer_.HeldNameChanged(turn.record);
  }
  row.RowTag = 1;
  row.mark = Mark::kDone;
  if (output_.cmbDestination > kUseSourceFolder) records_.SetNewPath(row, turn.target_folder);
  if (turn.resolved) {
    reports_.gConflictReport.push_back({records_.Path(row), records_.NewPath(row),
                                        row.sourceFileName, row.newFileName, turn.planned});
  }
  row.mode = static_cast<std::int8_t>(output_.cmbDestination);
}
