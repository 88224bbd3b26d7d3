#pragma once

#include <cstddef>

#include "commands/command_view.h"
#include "core/run_state.h"
#include "filelist/file_type.h"
#include "filelist/grid.h"
#include "names/constructor.h"
#include "platform/clock.h"
#include "platform/files.h"
#include "platform/services.h"
#include "rename/result_rows.h"

/// What the commands work on; all of it is the program's and outlives them.
struct CommandParts {
  RunState& state;
  Grid& grid;
  Constructor& constructor;
  RunReports& reports;
  FileSystem& files;
  Clock& clock;
  EventPump& events;
  LocaleFacts& locale;
  TypeNames& type_names;
  Prompts& prompts;
};

/// The user's commands, each run to its end: "Prepare file list", then "Preview", then "Rename".
/// The modes keep them on that road. A failure ends a command in the mode from which the user can
/// go on, and is reported.
class Commands {
 public:
  Commands(const CommandParts& parts, CommandView& view);

  void bnLoadFileList_Click();
  void bnPreview_Click();
  void bnRename_Click();
  /// Takes back the last run, or the rest of it; goes by what the rows hold.
  void bnUndo_Click();
  /// Asks the running pass to end; it sees that when it next lets events run.
  void bnCancel_Click();

  /// The mode of the window; see run_modes.h.
  void EnableDisable(int mode);
  int Mode() const { return mode_; }
  /// A pass is running, so nothing but "Cancel" may be done.
  bool Busy() const;

 private:
  /// The events of a pass: the panes are shown as they stand each time events run.
  class ShowingPump : public EventPump {
   public:
    ShowingPump(EventPump& events, CommandView& view) : events_(events), view_(view) {}
    void LetEventsRun() override {
      view_.ShowPanes();
      events_.LetEventsRun();
    }

   private:
    EventPump& events_;
    CommandView& view_;
  };

  void RunScan(const SourceOptions& source);
  EmptyList WhyNoneFound(const SourceOptions& source, const ScanFindings& findings);
  /// Ends a scan with an empty list.
  void ShowNoList(EmptyList reason);
  /// After a failure: the mode from which the user can go on, the rows as far as they got.
  void LeaveUsable(int mode);
  void ShowProgress(const char* status, std::size_t max);
  bool fRename(const Options& options);

  CommandParts parts_;
  RunState& state_;
  Grid& grid_;
  CommandView& view_;
  ShowingPump events_;
  FileTypes types_;
  int mode_ = ModeNoFolder;
};
