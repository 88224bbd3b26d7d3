#include "commands/commands.h"

#include <chrono>
#include <string>
#include <vector>

#include "commands/result_line.h"
#include "common/language.h"
#include "common/path_text.h"
#include "core/pass.h"
#include "filelist/masks.h"
#include "filelist/scan.h"
#include "filelist/system_folder.h"
#include "names/preview.h"
#include "platform/system_facts.h"
#include "platform/text.h"
#include "rename/run.h"
#include "rename/undo.h"
#include "settings/output_modes.h"
#include "settings/reg_settings.h"
#include "trace/err_trace.h"

namespace {

using namespace mLanguageGobals;

/// The wait pointer for as long as it lives.
class WaitPointer {
 public:
  explicit WaitPointer(ModeView& view) : view_(view) { view_.SetWaitPointer(true); }
  ~WaitPointer() { view_.SetWaitPointer(false); }
  WaitPointer(const WaitPointer&) = delete;
  WaitPointer& operator=(const WaitPointer&) = delete;

 private:
  ModeView& view_;
};

std::int64_t UnixSeconds() {
  return std::chrono::duration_cast<std::chrono::seconds>(
             std::chrono::system_clock::now().time_since_epoch())
      .count();
}

}  // namespace

Commands::Commands(Session& session, const Services& services, CommandView& view, ListSurface& list)
    : session_(session),
      state_(session.state),
      view_(view),
      list_(list),
      events_(services.events, [this] { ShowPass(); }),
      services_(WithEvents(services, events_)),
      types_(services.type_names),
      check_(session.records, session.state, services.files, services.clock) {}

void Commands::EnableDisable(int mode) {
  const bool forgets = mode != ModePreviewReady && state_.foretold;
  if (forgets) check_.End();
  mode_ = mode;
  ::EnableDisable(mode, session_.records.Count(), state_, view_);
  if (forgets) list_.RepaintRows();  // their signs
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

// What all passes have in common.

const Commands::PassKind Commands::kScan{.running = ModeScanning,
                                         .done = ModeListReady,
                                         .cancelled = ModeListEmpty,
                                         .show = &Commands::ShowList};
const Commands::PassKind Commands::kPreview{.running = ModeScanning,
                                            .done = ModePreviewReady,
                                            .cancelled = ModeListReady,
                                            .show = &Commands::ShowRows,
                                            .status = kPreviewing};
const Commands::PassKind Commands::kRename{.running = ModeRunStarting,
                                           .done = ModeRunFinished,
                                           .cancelled = ModeRunCancelled,
                                           .show = &Commands::ShowRows,
                                           .status = kRenaming,
                                           .told_when_cancelled = kRunNotCompleted,
                                           .journaled = true};
const Commands::PassKind Commands::kUndo{.running = ModeRunning,
                                         .done = ModeUndoFinished,
                                         .cancelled = ModeUndoCancelled,
                                         .show = &Commands::ShowRows,
                                         .status = kRenaming,
                                         .done_word = kUndone,
                                         .journaled = true};

bool Commands::RunPass(const PassKind& kind, std::size_t count,
                       const std::function<bool(Pass&)>& work) {
  const auto let_go = [&] {
    services_.files.LetFoldersGo();
    if (kind.journaled) session_.journal.End();
    state_.previewing = false;
    (this->*kind.show)();
    state_.gCancelRequested = false;
  };
  const auto leave_usable = [&] {
    EnableDisable(kind.cancelled);  // first, for nothing after it matters as much
    let_go();
    ShowResult(kind);
  };
  bool done = false;
  ErrTrace::OnFailure("Commands.OnFailure", leave_usable, [&] {
    EnableDisable(kind.running);
    if (kind.done_word.empty()) {
      state_.names = {};  // of those that are made or listed anew
    } else {
      ++run_count_;
    }
    state_.counts = {};
    if (!kind.status.empty()) ShowProgress(kind.status, count);
    state_.gCancelRequested = false;
    std::optional<JournaledServices> journaled;
    Pass pass(session_.records, state_, ServicesOf(kind, journaled), count);
    done = work(pass);
    let_go();
    if (!done && !kind.told_when_cancelled.empty()) {
      services_.prompts.Tell(kind.told_when_cancelled, PromptIcon::kExclamation);
    }
    EnableDisable(done ? kind.done : kind.cancelled);
    ShowResult(kind);
  });
  return done;
}

const Services& Commands::ServicesOf(const PassKind& kind,
                                     std::optional<JournaledServices>& journaled) {
  if (!kind.journaled || !session_.journal.Keeps()) return services_;
  journaled.emplace(services_, session_.journal, [this] { session_.journal.Sync(); });
  return journaled->Get();
}

void Commands::ShowProgress(std::string_view status, std::size_t max) {
  state_.panes.paneStatus = status;
  state_.panes.progressVisible = true;
  state_.panes.totalStretched = false;
  state_.panes.progressMax = static_cast<std::int64_t>(max);
  state_.counts.all = static_cast<std::int64_t>(session_.records.Count());
}

void Commands::ShowPass() {
  state_.panes.paneResult = ProgressLine(state_.counts, services_.locale) + NoJournal();
  view_.ShowPanes();
  list_.RepaintRows();
}

std::string Commands::NoJournal() {
  const int problem = session_.journal.Problem();
  if (problem != 0 && problem != told_problem_) {
    told_problem_ = problem;
    told_in_run_ = run_count_;
  }
  return run_count_ == told_in_run_ ? NoJournalText(problem) : "";
}

void Commands::ShowResult(const PassKind& kind) {
  if (kind.done_word.empty() && state_.names.limit == 0) return ShowTicks();
  const Records* ticked = kind.done == ModeRunFinished ? &session_.records : nullptr;
  state_.panes.paneResult =
      kind.done_word.empty()
          ? NamesLine(state_.names, session_.records, services_.locale)
          : ResultLine(kind.done_word, state_.counts, session_.reports, ticked, services_.locale);
  if (!kind.done_word.empty()) state_.panes.paneResult += NoJournal();
  view_.ShowPanes();
}

void Commands::ShowList() {
  if (list_state_ != EmptyList::kNotListed) state_.panes.paneTotal = kTotalOfNone;
  list_.ListRepopulated(list_state_);
}

void Commands::ShowRows() {
  list_.RowsChanged();
}

// The commands.

void Commands::bnLoadFileList_Click() {
  ErrTrace::top("Form1.bnLoadFileList_Click", [&] {
    SourceOptions source = view_.ReadOptions().source;
    source.fdSourceFolder = text::Trim(source.fdSourceFolder);
    view_.SetSourceFolder(source.fdSourceFolder);
    if (source.fdSourceFolder.empty()) return;
    if (!MayList(source.fdSourceFolder)) return;
    check_.End();
    ForgetRuns();
    session_.records.DeleteAll();
    session_.grid.Clear();
    list_.ListRepopulated(EmptyList::kListing);
    const bool faulty =
        MaskList(source.fdIncludeMask).IsFaulty() || MaskList(source.fdExcludeMask).IsFaulty();
    list_state_ = faulty ? EmptyList::kMaskFaulty : EmptyList::kNotComplete;
    state_.gFileCount = 0;
    state_.panes.paneTotal = kTotalOfNone;  // none of those that stood there is listed now
    RunPass(kScan, 0, [&](Pass& pass) { return FillList(pass, source); });
  });
}

bool Commands::MayList(const std::string& folder) {
  const std::vector<std::string> system = services_.facts.SystemFolders();
  std::string folders = SystemFolder(folder, system);
  // The same folder under another path ("//etc/", a link to it) is as dear.
  if (folders.empty()) folders = SystemFolder(services_.files.ResolveFolder(folder), system);
  if (folders.empty()) return true;
  bool asks = true;  // what can't be read must not take the guard away
  ErrTrace::top("Form1.bnLoadFileList_Click", [&] {
    asks = mRegSettings::ReadInteger(services_.settings, kCheckForSystemFolders) == 1;
  });
  return !asks || view_.AskAboutSystemFolders(folders);
}

/// False when no list came of it; why not stands in `list_state_`.
bool Commands::FillList(Pass& pass, const SourceOptions& source) {
  mScanCD::Scan scan(pass, source, types_);
  scan.ShowDir3_FillPreview(mMain::LastFolderName(source.fdSourceFolder), source.fdSourceFolder);
  if (state_.gCancelRequested) return false;
  if (session_.records.Count() == 0) {
    list_state_ = WhyNoneFound(source, scan.Findings());
    return false;
  }
  if (!session_.grid.Populate([&] { return pass.GoOn(); })) return false;
  list_state_ = EmptyList::kNotListed;
  return true;
}

EmptyList Commands::WhyNoneFound(const SourceOptions& source, const ScanFindings& findings) {
  const bool is_there = services_.files.IdentifyFolder(source.fdSourceFolder).has_value();
  return WhyEmpty(findings, source.fdSourceFolder, is_there, source.fdIncludeMask,
                  source.fdExcludeMask);
}

void Commands::bnPreview_Click() {
  ErrTrace::top("Form1.bnPreview_Click", [&] {
    if (session_.grid.RowCount() == 0 || session_.constructor.ArrConstr.empty()) return;
    const bool done = RunPass(kPreview, session_.grid.RowCount(), [&](Pass& pass) {
      state_.previewing = true;
      const bool made = SetPreview(pass, session_.grid, session_.constructor, NameBytes());
      if (made) state_.gPreviewStale = false;
      return made;
    });
    if (done) CheckNames();
  });
}

void Commands::CheckNames() {
  ErrTrace::top("Commands.CheckNames", [&] {
    if (mode_ != ModePreviewReady || state_.gPreviewStale) return;
    if (const std::size_t limit = NameBytes(); limit != state_.names.limit) {
      check_.End();
      state_.names = {limit};
      for (std::size_t i = 0; i < session_.records.Count(); ++i) {
        const FileRow& row = session_.records[i];
        if (row.checked && row.RowTag != 1) state_.names.Add(row);
      }
    }
    const Options options = view_.ReadOptions();
    const bool can_run = !AsksForFolder(options.output.cmbDestination) ||
                         mMain::IsAbsolutePath(options.output.fdDestination);
    if (can_run) {
      check_.Begin({options.output, options.source.fdSourceFolder});
      view_.WorkInPauses();
    } else {
      check_.End();
    }
    ShowNames();
  });
}

bool Commands::WorkInPause() {
  if (Busy() || !check_.Waits()) return false;
  check_.GoOn();
  ShowNames();
  return check_.Waits();
}

/// How long names may be where the run will put its files.
std::size_t Commands::NameBytes() const {
  const Options options = view_.ReadOptions();
  const bool elsewhere = AsksForFolder(options.output.cmbDestination);
  return services_.facts.NameBytes(elsewhere ? options.output.fdDestination
                                             : options.source.fdSourceFolder);
}

void Commands::bnRename_Click() {
  ErrTrace::top("Form1.bnRename_Click", [&] {
    if (session_.grid.RowCount() == 0) return;
    const Options options = view_.ReadOptions();
    const OutputOptions& output = options.output;
    if (AsksForFolder(output.cmbDestination) && output.fdDestination.empty()) {
      services_.prompts.Tell(kSelectOutputFolder, PromptIcon::kExclamation);
      return;
    }
    if (AsksForFolder(output.cmbDestination) && !mMain::IsAbsolutePath(output.fdDestination)) {
      services_.prompts.Tell(kOutputMustBeFull, PromptIcon::kExclamation);
      return;
    }
    fRename({output, options.source.fdSourceFolder});
  });
}

bool Commands::fRename(const RunOutput& output) {
  return ErrTrace::inner("Form1.fRename", [&] {
    RunReports& reports = session_.reports;
    PassKind kind = kRename;
    kind.done_word = DoneWord(output.chosen.cmbDestination);
    BeginJournal(journal::Work::kRun, output);
    const bool done = RunPass(kind, session_.records.Count(), [&](Pass& pass) {
      reports.DeleteAll();
      return RenameRun(pass, output, reports).RunRename();
    });
    if (done && !reports.gFailureReport.empty()) view_.ShowFailureReport();
    if (done && !reports.gConflictReport.empty()) view_.ShowConflictReport();
    return done;
  });
}

void Commands::BeginJournal(journal::Work work, const RunOutput& output) {
  if (!session_.journal.Keeps()) return;
  journal::PassFacts pass{
      OwnMark(), UnixSeconds(), work, output.chosen.cmbDestination, output.fdSourceFolder, 0};
  for (std::size_t i = 0; work == journal::Work::kRun && i < session_.records.Count(); ++i) {
    pass.wanted += session_.records[i].checked && session_.records[i].RowTag != 1;
  }
  session_.journal.Begin(pass);
}

void Commands::ForgetRuns() {
  session_.journal.Remove();
}

void Commands::bnUndo_Click() {
  ErrTrace::top("Form1.bnUndo_Click", [&] {
    RunReports& reports = session_.reports;
    BeginJournal(journal::Work::kUndo, {});
    const bool done = RunPass(kUndo, session_.records.Count(), [&](Pass& pass) {
      reports.DeleteAll();
      return UndoRun(pass, reports).Undo();
    });
    const std::size_t failed = reports.gFailureReport.size();
    if (done && failed == 0) session_.journal.Remove();
    if (!done) {
      services_.prompts.Tell(kUndoNotCompleted, PromptIcon::kExclamation);
    } else if (failed != 0) {
      services_.prompts.Tell(std::string(kUndoFailedFor) + std::to_string(failed) + kFiles,
                             PromptIcon::kCritical);
    }
  });
}

void Commands::Check(const CheckOperation& operation) {
  ErrTrace::inner(operation.procedure, [&] {
    if (operation.by_mask) {
      const auto mask = view_.AskForMask(operation.caption, state_.gCheckMask);
      if (!mask) return;
      state_.gCheckMask = *mask;
    }
    const WaitPointer wait(view_);  // a million boxes take a moment before the list is made anew
    SetCheckBoxes(operation, session_.grid, list_.SelectedRows(), state_.gCheckMask);
    list_.ShowAnew();
    TicksChanged();
  });
}

void Commands::TicksChanged() {
  MarkStale();
  ShowTicks();
}

void Commands::ShowNames() {
  state_.panes.paneResult = NamesLine(state_.names, session_.records, services_.locale);
  view_.ShowPanes();
  list_.RepaintRows();
}

void Commands::ShowTicks() {
  const bool listed = session_.grid.RowCount() > 0;
  state_.panes.paneResult = listed ? TicksLine(session_.records, services_.locale) : "";
  view_.ShowPanes();
}

void Commands::MarkStale() {
  check_.End();
  if (!::MarkStale(state_, view_)) return;
  list_.RepaintRows();
  if (mode_ == ModePreviewReady) ShowTicks();  // what was said of the names no longer holds
}
