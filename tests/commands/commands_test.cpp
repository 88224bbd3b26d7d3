#include "commands/commands.h"

#include <gtest/gtest.h>

#include "platform/text.h"
#include "support/fake_services.h"
#include "support/memory_files.h"
#include "trace/err_trace.h"

namespace {

/// The window as the commands see it: options, and which buttons are on.
class FakeView : public CommandView {
 public:
  FakeView(Grid& grid, const RunReports& reports) : grid_(grid), reports_(reports) {}

  void EnableElements(bool pEnable) override { elements = pEnable; }
  void SetWaitPointer(bool wait) override { waiting = wait; }
  void EnableButton(CommandButton button, bool enable) override {
    buttons[static_cast<std::size_t>(button)] = enable ? '1' : '0';
  }
  void ShowPanes() override {}
  SourceOptions ReadSourceOptions() override { return source; }
  OutputOptions ReadOutputOptions() override { return output; }
  void SetSourceFolder(const std::string& folder) override { source.fdSourceFolder = folder; }
  void ListRepopulated(EmptyList reason) override {
    if (grid_.RowCount() == 0) empty = reason;
  }
  void RowsChanged() override { ++rows_changed; }
  void FocusAfterCancel() override { focus_away = true; }
  void ShowFailureReport() override {
    shown.push_back("failed " + std::to_string(reports_.gFailureReport.size()));
  }
  void ShowConflictReport() override {
    shown.push_back("numbered " + std::to_string(reports_.gConflictReport.size()));
  }

  SourceOptions source{"/in/", "", "", false};
  OutputOptions output{kUseSourceFolder, "", true, "/in/"};
  bool elements = false;
  bool waiting = false;
  std::string buttons = "-----";  ///< list, preview, rename, undo, cancel
  EmptyList empty = EmptyList::kListing;
  int rows_changed = 0;
  bool focus_away = false;
  std::vector<std::string> shown;  ///< the report windows, with their counts

 private:
  Grid& grid_;
  const RunReports& reports_;
};

/// Keeps what would have been shown.
class FakeReporter : public ErrTrace::Reporter {
 public:
  FakeReporter() { ErrTrace::SetReporter(this); }
  ~FakeReporter() override { ErrTrace::SetReporter(nullptr); }
  void ShowErrorReport(const std::string& report) noexcept override { reports.push_back(report); }

  std::vector<std::string> reports;
};

class CommandsTest : public testing::Test, protected FakeServices {
 protected:
  void SetUp() override {
    files.folders = {"/in", "/out"};
    files.contents = {{"/in/a.txt", "a"}, {"/in/b.txt", "b"}};
    commands.EnableDisable(ModeFolderChosen);
  }

  /// Cancels when events run for the n-th time from now.
  void CancelAt(int n) {
    const int last = events.count + n;
    events.on_events = [this, last] {
      if (events.count == last) commands.bnCancel_Click();
    };
  }

  Session session;
  RunState& state = session.state;
  Records& records = session.records;
  Grid& grid = session.grid;
  Constructor& constructor = session.constructor;
  RunReports& reports = session.reports;
  FakeView view{grid, reports};
  FakeReporter reporter;
  Commands commands{session, services, view};
};

}  // namespace

TEST_F(CommandsTest, GoTheRoadFromListToRename) {
  constructor.InsertArrConstrItem(0, kText, "x ");
  commands.bnLoadFileList_Click();
  EXPECT_EQ(view.buttons, "11000");
  EXPECT_EQ(grid.RowCount(), 3u) << "a group row and two files";
  EXPECT_EQ(state.panes.paneTotal, "Total 2 files");
  commands.bnLoadFileList_Click();
  EXPECT_EQ(state.panes.paneTotal, "Total 2 files") << "a second list counts anew";
  commands.bnPreview_Click();
  EXPECT_EQ(view.buttons, "11100");
  EXPECT_EQ(records[0].newFileName, "x a.txt");
  EXPECT_EQ(state.panes.progressValue, 0);
  commands.bnRename_Click();
  EXPECT_EQ(commands.Mode(), ModeRunFinished);
  EXPECT_EQ(view.buttons, "10010");
  EXPECT_TRUE(files.contents.contains("/in/x a.txt"));
  EXPECT_TRUE(view.elements);
  EXPECT_FALSE(view.waiting);
}

TEST_F(CommandsTest, LeaveOnlyCancelOnDuringAPass) {
  constructor.InsertArrConstrItem(0, kText, "x ");
  const struct {
    void (Commands::*command)();
    std::string panes;  ///< status, bar, total stretched, greatest value
  } table[] = {
      {&Commands::bnLoadFileList_Click, "||stretched|0"},
      {&Commands::bnPreview_Click, "Preview |bar||3"},
      {&Commands::bnRename_Click, "Renaming |bar||2"},
      {&Commands::bnUndo_Click, "Renaming |bar||2"},
  };
  for (const auto& row : table) {
    SCOPED_TRACE(row.panes);
    events.count = 0;
    events.on_events = [&] {
      const StatusPanes& panes = state.panes;
      EXPECT_EQ(panes.paneStatus + (panes.progressVisible ? "|bar|" : "||") +
                    (panes.totalStretched ? "stretched|" : "|") + std::to_string(panes.progressMax),
                row.panes);
      EXPECT_EQ(view.buttons, "00001");
      EXPECT_FALSE(view.elements);
      EXPECT_TRUE(view.waiting && commands.Busy());
    };
    (commands.*row.command)();
    EXPECT_GT(events.count, 0);
    EXPECT_TRUE(view.elements && !view.waiting && !commands.Busy());
    EXPECT_TRUE(state.panes.totalStretched && !state.panes.progressVisible);
  }
}

TEST_F(CommandsTest, KeepEveryNameWithTheStartItems) {
  files.contents = {{"/in/a.b.c", ""}, {"/in/noext", ""}, {"/in/.profile", ""}};
  commands.bnLoadFileList_Click();
  commands.bnPreview_Click();
  for (std::size_t i = 0; i < records.Count(); ++i) {
    EXPECT_EQ(records[i].newFileName, records[i].sourceFileName);
  }
}

TEST_F(CommandsTest, TellWhyTheListIsEmpty) {
  files.folders.insert(
      {"", "/locked", "/bare", "/bare/.git", "/up", "/up/sub", "/shut", "/shut/a"});
  files.contents["/up/sub/file"] = "";
  files.locked = {"/locked", "/shut/a"};
  const struct {
    SourceOptions source;
    EmptyList reason;
  } table[] = {
      {{"  /nowhere/ ", "", "", true}, EmptyList::kFolderMissing},
      {{"/nowhere", "", "", true}, EmptyList::kFolderMissing},
      {{"/up", "", "", false}, EmptyList::kSeparatorMissing},
      {{"/locked/", "", "", true}, EmptyList::kFolderUnreadable},
      {{"/bare/", "*.jpg;*.png", "", false}, EmptyList::kNoFile},
      {{"/up/", "", "", false}, EmptyList::kOnlySubfolders},
      {{"/up/", "*.jpg", "", true}, EmptyList::kNoMatch},
      {{"/shut/", "", "", true}, EmptyList::kSubfolderUnreadable},
      {{"/in/", "", "*", true}, EmptyList::kNoMatch},
      {{"/in/", "*.jpg;*.png", "", true}, EmptyList::kMasksNotParted},
      {{"/in/", "", "*.txt *,", true}, EmptyList::kMasksNotParted},
  };
  for (const auto& row : table) {
    SCOPED_TRACE(row.source.fdSourceFolder + row.source.fdIncludeMask);
    view.source = row.source;
    state.panes.paneTotal = "";
    commands.bnLoadFileList_Click();
    EXPECT_EQ(view.source.fdSourceFolder, text::Trim(row.source.fdSourceFolder));
    EXPECT_EQ(view.buttons, "10000");
    EXPECT_EQ(view.empty, row.reason);
    EXPECT_FALSE(TextsOf(row.reason).note.empty());
    EXPECT_EQ(state.panes.paneTotal, "Total 0 files");
  }

  view.source = {"/in/", "", "", false};
  clock.step_ms = 50;
  CancelAt(3);
  commands.bnLoadFileList_Click();
  EXPECT_EQ(view.buttons, "10000");
  EXPECT_EQ(view.empty, EmptyList::kNotComplete);
  EXPECT_EQ(state.panes.paneTotal, "Total 0 files");
  EXPECT_EQ(grid.RowCount(), 0u);
  EXPECT_EQ(records.Count(), 1u) << "what was found stays out of sight";
  EXPECT_FALSE(state.gCancelRequested);
  EXPECT_TRUE(view.focus_away);
}

TEST_F(CommandsTest, DoNothingWithoutAFolderOrRowsOrElements) {
  view.source.fdSourceFolder = "  ";
  commands.bnLoadFileList_Click();
  EXPECT_EQ(commands.Mode(), ModeFolderChosen);
  commands.bnPreview_Click();
  commands.bnRename_Click();
  EXPECT_EQ(commands.Mode(), ModeFolderChosen);
  view.source.fdSourceFolder = "/in/";
  commands.bnLoadFileList_Click();
  constructor.ArrConstr.clear();
  commands.bnPreview_Click();
  EXPECT_EQ(commands.Mode(), ModeListReady);
}

TEST_F(CommandsTest, KeepThePreviewStaleWhenItIsCancelled) {
  commands.bnLoadFileList_Click();
  MarkStale(state, view);
  CancelAt(2);
  commands.bnPreview_Click();
  EXPECT_EQ(commands.Mode(), ModeListReady);
  EXPECT_TRUE(state.gPreviewStale);
  EXPECT_EQ(records[0].newFileName, "") << "the group row came first";
  events.on_events = nullptr;
  commands.bnPreview_Click();
  EXPECT_FALSE(state.gPreviewStale);
  EXPECT_EQ(commands.Mode(), ModePreviewReady);
}

TEST_F(CommandsTest, AskForAWholeOutputFolder) {
  commands.bnLoadFileList_Click();
  commands.bnPreview_Click();
  view.output = {kCopyTo, "", true, "/in/"};
  commands.bnRename_Click();
  view.output = {kMoveTo, "pictures/", true, "/in/"};
  commands.bnRename_Click();
  EXPECT_EQ(prompts.told, (std::vector<std::string>{
                              "Please select output folder",
                              "The output folder must be a full path, as in /home/me/pictures/."}));
  EXPECT_EQ(commands.Mode(), ModePreviewReady);
  view.output = {kUseSourceFolder, "pictures/", true, "/in/"};
  commands.bnRename_Click();
  EXPECT_EQ(commands.Mode(), ModeRunFinished) << "the folder isn't used";
}

TEST_F(CommandsTest, GoOnAfterACancelledRun) {
  constructor.InsertArrConstrItem(0, kText, "x ");
  commands.bnLoadFileList_Click();
  commands.bnPreview_Click();
  CancelAt(1);
  commands.bnRename_Click();
  EXPECT_EQ(prompts.told, std::vector<std::string>{
                              "Process is not completed.\nSome of the files have been renamed."});
  EXPECT_EQ(commands.Mode(), ModeRunCancelled);
  EXPECT_EQ(view.buttons, "10110");
  EXPECT_EQ(state.panes.paneStatus, "Renaming ") << "stays until another mode clears it";
  EXPECT_TRUE(files.contents.contains("/in/a.txt"));
  events.on_events = nullptr;
  commands.bnRename_Click();
  EXPECT_EQ(commands.Mode(), ModeRunFinished);
  EXPECT_TRUE(files.contents.contains("/in/x b.txt"));
  EXPECT_EQ(state.panes.paneStatus, "");
}

TEST_F(CommandsTest, ShowWhatWentOtherwiseThanPlanned) {
  files.contents["/in/c.txt"] = "c";
  constructor.ArrConstr.clear();
  constructor.InsertArrConstrItem(0, kText, "same");
  const auto list_and_preview = [&] {
    commands.bnLoadFileList_Click();
    commands.bnPreview_Click();
    view.shown.clear();
  };
  list_and_preview();
  files.fails = [](std::string_view, std::string_view path) { return path == "/in/a.txt"; };
  commands.bnRename_Click();
  EXPECT_EQ(view.shown, (std::vector<std::string>{"failed 1", "numbered 1"}));
  files.fails = nullptr;
  commands.bnUndo_Click();
  EXPECT_EQ(prompts.told, std::vector<std::string>()) << "what failed has nothing to take back";
  for (const char* path : {"/in/a.txt", "/in/b.txt", "/in/c.txt"}) {
    EXPECT_TRUE(files.contents.contains(path)) << path;
  }

  constructor.ArrConstr.clear();
  constructor.InsertArrConstrItem(0, kSourceFileName, "");
  list_and_preview();
  commands.bnRename_Click();
  EXPECT_EQ(view.shown, std::vector<std::string>()) << "a clean run";
  EXPECT_EQ(reports.gFailureReport.size(), 0u) << "those of the run before are gone";
  EXPECT_EQ(reports.gConflictReport.size(), 0u);

  list_and_preview();
  files.fails = [](std::string_view, std::string_view) { return true; };
  CancelAt(2);
  commands.bnRename_Click();
  EXPECT_EQ(commands.Mode(), ModeRunCancelled);
  EXPECT_EQ(reports.gFailureReport.size(), 1u);
  EXPECT_EQ(view.shown, std::vector<std::string>()) << "a cancelled run";
}

TEST_F(CommandsTest, TakeARunBack) {
  constructor.InsertArrConstrItem(0, kText, "x ");
  commands.bnLoadFileList_Click();
  commands.bnPreview_Click();
  commands.bnRename_Click();
  CancelAt(2);
  commands.bnUndo_Click();
  EXPECT_EQ(prompts.told, std::vector<std::string>{
                              "Process is not completed.\nSome of the files are still renamed."});
  EXPECT_EQ(commands.Mode(), ModeUndoCancelled);
  EXPECT_EQ(state.panes.progressValue, 1) << "the bar runs backwards";
  EXPECT_TRUE(files.contents.contains("/in/a.txt"));
  EXPECT_TRUE(files.contents.contains("/in/x b.txt"));
  events.on_events = nullptr;
  commands.bnUndo_Click();
  EXPECT_EQ(commands.Mode(), ModeUndoFinished);
  EXPECT_EQ(view.buttons, "11100") << "the same run can be done again";
  EXPECT_TRUE(files.contents.contains("/in/b.txt"));
  EXPECT_EQ(records[1].newFileName, "x b.txt");

  commands.bnRename_Click();
  files.contents["/in/a.txt"] = "a stranger";
  commands.bnUndo_Click();
  EXPECT_EQ(prompts.told.back(), "Undo failed for 1 file(s)");
  EXPECT_EQ(prompts.icons, "!x");
  EXPECT_EQ(files.contents["/in/a.txt"], "a stranger");
  EXPECT_EQ(view.shown, std::vector<std::string>()) << "an undo tells its failures by number only";
}

TEST_F(CommandsTest, LeaveAUsableWindowAfterAFailure) {
  view.source.fdIncludeMask = "[a";
  commands.bnLoadFileList_Click();
  EXPECT_EQ(commands.Mode(), ModeListEmpty);
  EXPECT_EQ(view.empty, EmptyList::kNotComplete);
  EXPECT_EQ(state.panes.paneTotal, "Total 0 files");
  ASSERT_EQ(reporter.reports.size(), 1u);
  for (const char* line :
       {"Invalid pattern string", "mCommon.LikeFilter", "bnLoadFileList_Click"}) {
    EXPECT_NE(reporter.reports[0].find(line), std::string::npos) << line;
  }

  view.source.fdIncludeMask = "";
  constructor.InsertArrConstrItem(0, kCounter, "");
  constructor.ArrConstr[0].CounterStart = 0x7FFFFFFF;
  commands.bnLoadFileList_Click();
  commands.bnPreview_Click();
  EXPECT_EQ(commands.Mode(), ModeListReady);
  EXPECT_EQ(reporter.reports.size(), 2u);

  files.fails = [](std::string_view, std::string_view) -> bool { throw Failure(51, "broken"); };
  constructor.ArrConstr[0].CounterStart = 1;
  commands.bnPreview_Click();
  commands.bnRename_Click();
  EXPECT_EQ(commands.Mode(), ModeRunCancelled);
  EXPECT_EQ(view.buttons, "10110");
  EXPECT_FALSE(view.waiting);
  records[0].RowTag = 1;
  records[0].mode = kUseSourceFolder;
  commands.bnUndo_Click();
  EXPECT_EQ(commands.Mode(), ModeUndoCancelled);
}
