#include "commands/commands.h"

#include <exception>
#include <string>

#include "common/path_text.h"
#include "core/long_pass.h"
#include "filelist/scan.h"
#include "names/preview.h"
#include "platform/text.h"
#include "rename/run.h"
#include "rename/undo.h"
#include "trace/err_trace.h"

namespace {

constexpr std::string_view kNotAbsolute =
    "The output folder must be a full path, as in /home/me/pictures/.";

/// Does `step` when a failure ends the block that it stands in.
template <class Step>
class OnFailure {
 public:
  explicit OnFailure(Step step) : step_(step), failures_(std::uncaught_exceptions()) {}
  ~OnFailure() {
    if (std::uncaught_exceptions() > failures_) {
      ErrTrace::top("Commands.OnFailure", step_);
    }
  }
  OnFailure(const OnFailure&) = delete;
  OnFailure& operator=(const OnFailure&) = delete;

 private:
  const Step step_;
  const int failures_;
};

}  // namespace

Commands::Commands(const CommandParts& parts, CommandView& view)
    : parts_(parts),
      state_(parts.state),
      grid_(parts.grid),
      view_(view),
      events_(parts.events, view),
      types_(parts.type_names) {}

void Commands::EnableDisable(int mode) {
  mode_ = mode;
  ::EnableDisable(mode, grid_.AllRecords().Count(), state_, view_);
}

bool Commands::Busy() const {
  return mode_ == ModeScanning || mode_ == ModeRunStarting || mode_ == ModeRunning;
}

void Commands::bnCancel_Click() {
  ErrTrace::top("Form1.bnCancel_Click", [&] {
    state_.gCancelRequested = true;
    view_.FocusAfterCancel();
  });
}

void Commands::bnLoadFileList_Click() {
  ErrTrace::top("Form1.bnLoadFileList_Click", [&] {
    SourceOptions source = view_.ReadOptions().source;
    source.fdSourceFolder = text::Trim(source.fdSourceFolder);
    view_.SetSourceFolder(source.fdSourceFolder);
    if (source.fdSourceFolder.empty()) return;
    grid_.AllRecords().DeleteAll();
    grid_.Clear();
    view_.ListRepopulated(EmptyList::kListing);
    const OnFailure usable([this] { ShowNoList(EmptyList::kNotComplete); });
    EnableDisable(ModeScanning);
    RunScan(source);
  });
}

void Commands::RunScan(const SourceOptions& source) {
  state_.gCancelRequested = false;
  state_.gFileCount = 0;
  Records& records = grid_.AllRecords();
  LongPass pass(0, state_, events_, parts_.clock);
  mScanCD::Scan scan(source, records, state_, parts_.files, parts_.clock, types_, pass);
  scan.ShowDir3_FillPreview(mMain::LastFolderName(source.fdSourceFolder), source.fdSourceFolder);
  if (state_.gCancelRequested) return ShowNoList(EmptyList::kNotComplete);
  if (records.Count() == 0) return ShowNoList(WhyNoneFound(source, scan.Findings()));
  parts_.files.LetFoldersGo();
  grid_.Populate();
  view_.ListRepopulated(EmptyList::kNotListed);
  EnableDisable(ModeListReady);
}

EmptyList Commands::WhyNoneFound(const SourceOptions& source, const ScanFindings& findings) {
  const bool is_there = parts_.files.IdentifyFolder(source.fdSourceFolder).has_value();
  return WhyEmpty(findings, source.fdSourceFolder, is_there, source.fdIncludeMask,
                  source.fdExcludeMask);
}

void Commands::ShowNoList(EmptyList reason) {
  state_.gCancelRequested = false;
  state_.panes.paneTotal = "Total 0 files";
  EnableDisable(ModeListEmpty);
  parts_.files.LetFoldersGo();
  view_.ListRepopulated(reason);
}

void Commands::LeaveUsable(int mode) {
  state_.gCancelRequested = false;
  EnableDisable(mode);
  parts_.files.LetFoldersGo();
  view_.RowsChanged();
}

void Commands::ShowProgress(const char* status, std::size_t max) {
  state_.panes.paneStatus = status;
  state_.panes.progressVisible = true;
  state_.panes.totalStretched = false;
  state_.panes.progressMax = static_cast<std::int64_t>(max);
}

void Commands::bnPreview_Click() {
  ErrTrace::top("Form1.bnPreview_Click", [&] {
    if (grid_.RowCount() == 0 || parts_.constructor.ArrConstr.empty()) return;
    const OnFailure usable([this] { LeaveUsable(ModeListReady); });
    EnableDisable(ModeScanning);
    ShowProgress("Preview ", grid_.RowCount());
    state_.panes.progressValue = 0;
    state_.gCancelRequested = false;
    SetPreview({grid_, parts_.constructor, state_, events_, parts_.clock, parts_.locale});
    view_.RowsChanged();
    if (state_.gCancelRequested) {
      state_.gCancelRequested = false;
      EnableDisable(ModeListReady);
      return;
    }
    EnableDisable(ModePreviewReady);
    state_.gPreviewStale = false;
  });
}

void Commands::bnRename_Click() {
  ErrTrace::top("Form1.bnRename_Click", [&] {
    if (grid_.RowCount() == 0) return;
    const Options options = view_.ReadOptions();
    const OutputOptions& output = options.output;
    if (AsksForFolder(output.cmbDestination) && output.fdDestination.empty()) {
      parts_.prompts.Tell("Please select output folder", PromptIcon::kExclamation);
      return;
    }
    if (AsksForFolder(output.cmbDestination) && !mMain::IsAbsolutePath(output.fdDestination)) {
      parts_.prompts.Tell(kNotAbsolute, PromptIcon::kExclamation);
      return;
    }
    const OnFailure usable([this] { LeaveUsable(ModeRunCancelled); });
    EnableDisable(ModeRunStarting);
    fRename(options);
  });
}

bool Commands::fRename(const Options& options) {
  return ErrTrace::inner("Form1.fRename", [&] {
    Records& records = grid_.AllRecords();
    ShowProgress("Renaming ", records.Count());
    state_.gCancelRequested = false;
    parts_.reports.DeleteAll();
    const RunOutput output{options.output, options.source.fdSourceFolder};
    RenameRun run(output, records, state_, parts_.files, events_, parts_.clock, parts_.reports);
    run.RunRename();
    parts_.files.LetFoldersGo();
    view_.RowsChanged();
    if (state_.gCancelRequested) {
      state_.gCancelRequested = false;
      parts_.prompts.Tell("Process is not completed.\nSome of the files have been renamed.",
                          PromptIcon::kExclamation);
      EnableDisable(ModeRunCancelled);
      return false;
    }
    EnableDisable(ModeRunFinished);
    if (!parts_.reports.gFailureReport.empty()) view_.ShowFailureReport();
    if (!parts_.reports.gConflictReport.empty()) view_.ShowConflictReport();
    return true;
  });
}

void Commands::bnUndo_Click() {
  ErrTrace::top("Form1.bnUndo_Click", [&] {
    const OnFailure usable([this] { LeaveUsable(ModeUndoCancelled); });
    state_.gCancelRequested = false;
    EnableDisable(ModeRunning);
    parts_.reports.DeleteAll();
    UndoRun(grid_.AllRecords(), state_, parts_.files, events_, parts_.clock, parts_.reports).Undo();
    parts_.files.LetFoldersGo();
    view_.RowsChanged();
    if (state_.gCancelRequested) {
      EnableDisable(ModeUndoCancelled);
      parts_.prompts.Tell("Process is not completed.\nSome of the files are still renamed.",
                          PromptIcon::kExclamation);
      return;
    }
    EnableDisable(ModeUndoFinished);
    const std::size_t failed = parts_.reports.gFailureReport.size();
    if (failed == 0) return;
    parts_.prompts.Tell("Undo failed for " + std::to_string(failed) + " file(s)",
                        PromptIcon::kCritical);
  });
}
