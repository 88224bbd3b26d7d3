#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string_view>

#include "commands/command_view.h"
#include "commands/name_check.h"
#include "core/pass.h"
#include "core/run_state.h"
#include "filelist/check_operations.h"
#include "filelist/file_type.h"
#include "filelist/grid.h"
#include "filelist/list_surface.h"
#include "names/constructor.h"
#include "platform/services.h"
#include "rename/journaled_files.h"
#include "rename/pump_with.h"
#include "rename/result_rows.h"
#include "rename/run_journal.h"
#include "rename/run_output.h"

/// What the commands work on, for the whole life of the program.
struct Session {
  RunState state;
  Records records;
  Grid grid{records, &state};
  Constructor constructor;
  RunReports reports;
  RunJournal journal;  ///< of what was done with the records
};

/// The user's commands, each run to its end: "Prepare file list", then "Preview", then "Rename".
/// The modes keep them on that road. A failure ends a command in the mode from which the user can
/// go on, and is reported.
class Commands {
 public:
  /// All of them outlive the commands.
  Commands(Session& session, const Services& services, CommandView& view, ListSurface& list);

  void bnLoadFileList_Click();
  void bnPreview_Click();
  void bnRename_Click();
  /// Takes back the last run, or the rest of it; goes by what the rows hold.
  void bnUndo_Click();
  /// Asks the running pass to end; it sees that when it next lets events run.
  void bnCancel_Click();

  /// Sets check boxes, and asks for the mask first where the operation goes by one. The preview is
  /// stale then, whatever changed; it stands when the user cancels or the mask fails.
  void Check(const CheckOperation& operation);
  /// Check boxes have changed: as above, and the result line says how many are left.
  void TicksChanged();
  /// The new names no longer fit what the user asks for; the rows in sight tell it.
  void MarkStale();

  /// Output or numbering may be others than before: if so, what a run would do with the new names
  /// of a preview is looked at from the start.
  void CheckNames();
  /// What was done can't be undone any more: its journal goes too.
  void ForgetRuns();
  /// Goes on with that for some 8 ms; false when nothing is left to look at.
  bool WorkInPause();

  /// The mode of the window; see run_modes.h.
  void EnableDisable(int mode);
  int Mode() const { return mode_; }
  /// A pass is running, so nothing but "Cancel" may be done.
  bool Busy() const;
  /// How many runs and undos have begun; a command that was refused begins none.
  int RunCount() const { return run_count_; }

 private:
  /// What differs between the passes.
  struct PassKind {
    RunMode running;
    RunMode done;
    RunMode cancelled;             ///< also after a failure
    void (Commands::*show)();      ///< shows what the pass left behind, however it ended
    std::string_view status = {};  ///< of the progress pane; empty: nothing is counted
    std::string_view told_when_cancelled = {};  ///< before the mode changes; empty: nothing is told
    std::string_view done_word = {};            ///< of a run or undo, for the result line
    bool journaled = false;                     ///< it changes files
  };
  static const PassKind kScan, kPreview, kRename, kUndo;

  /// One pass from its first mode to its last. `work` answers whether it came to its end, as this
  /// does.
  bool RunPass(const PassKind& kind, std::size_t count, const std::function<bool(Pass&)>& work);
  /// Those that a pass works with; they live as long as `journaled`.
  const Services& ServicesOf(const PassKind& kind, std::optional<JournaledServices>& journaled);
  void ShowProgress(std::string_view status, std::size_t max);
  /// The pass as it stands, and what it came to in the end.
  void ShowPass();
  void ShowResult(const PassKind& kind);
  /// That the run which is shown has no journal; said of one run only, until the cause is another.
  std::string NoJournal();
  /// How many files are ticked, where that isn't all.
  void ShowTicks();
  void ShowNames();
  /// What follows a scan, and what any other pass.
  void ShowList();
  void ShowRows();

  /// False when the folder touches the system's own and the user stays away from it.
  bool MayList(const std::string& folder);
  bool FillList(Pass& pass, const SourceOptions& source);
  EmptyList WhyNoneFound(const SourceOptions& source, const ScanFindings& findings);
  std::size_t NameBytes() const;
  bool fRename(const RunOutput& output);
  void BeginJournal(journal::Work work, const RunOutput& output);

  Session& session_;
  RunState& state_;
  CommandView& view_;
  ListSurface& list_;
  PumpWith events_;          ///< how far a pass is can be seen each time events run
  const Services services_;  ///< as the program has them, but with `events_`
  FileTypes types_;
  NameCheck check_;
  EmptyList list_state_ = EmptyList::kNotListed;  ///< of the last scan
  int mode_ = ModeNoFolder;
  int run_count_ = 0;
  int told_problem_ = 0;  ///< of a journal, as errno
  int told_in_run_ = 0;
};
