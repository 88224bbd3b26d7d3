#include "commands/commands_fixture.h"

#include <gmock/gmock.h>

#include "platform/text.h"
#include "support/failure_report.h"

TEST_F(CommandsTest, GoFromModeToMode) {
  const char* const table[][5] = {
      {"p r", "1 1", "1000-", "a.txt b.txt ", ""},
      {"l p r u", "3 5 8 10", "11100", "a.txt b.txt ", "2 undone"},
      {"l p r u r", "3 5 8 10 8", "10010", "x a.txt x b.txt ", "2 renamed"},
      {"l2 p", "4 4", "10000", "a.txt b.txt ", ""},
      {"l p2 p", "3 3 5", "11100", "a.txt b.txt ", "2 new names"},
      {"l p r1", "3 5 9", "10110", "a.txt b.txt ", "0 renamed"},
      {"l p r2 r", "3 5 9 8", "10010", "x a.txt x b.txt ", "1 renamed"},
      {"l p r2 u", "3 5 9 10", "11100", "a.txt b.txt ", "1 undone"},
      {"l p r u2", "3 5 8 11", "10110", "a.txt x b.txt ", "1 undone"},
      {"l p r u2 u p", "3 5 8 11 10 5", "11100", "a.txt b.txt ", "2 new names"},
      {"l p r s u", "3 5 8 8 10", "11000", "a.txt b.txt ", "2 undone"},
      {"l p r s u2", "3 5 8 8 11", "10010", "a.txt x b.txt ", "1 undone"},
  };
  clock.step_ms = 50;
  for (const auto& [road, modes, buttons, left, result] : table) {
    SCOPED_TRACE(road);
    files.contents = {{"/in/a.txt", "a"}, {"/in/b.txt", "b"}};
    records.DeleteAll();
    grid.Clear();
    commands.EnableDisable(ModeFolderChosen);
    view.buttons = "1000-";
    EXPECT_EQ(Walk(road), modes);
    EXPECT_EQ(view.buttons, buttons);
    EXPECT_EQ(state.panes.paneResult, result);
    std::string names;
    for (const auto& file : files.contents) names += file.first.substr(4) + " ";
    EXPECT_EQ(names, left);
  }
}

TEST_F(CommandsTest, LeaveOnlyCancelOnDuringAPass) {
  const std::pair<void (Commands::*)(), std::string> table[] = {
      {&Commands::bnLoadFileList_Click, "total stretched 0"},
      {&Commands::bnPreview_Click, "Preview bar 3"},
      {&Commands::bnRename_Click, "Renaming bar 2"},
      {&Commands::bnUndo_Click, "Renaming bar 2"}};
  for (const auto& [command, shown] : table) {
    events.count = 0;
    events.on_events = [&, expected = shown] {
      const StatusPanes& panes = state.panes;
      EXPECT_EQ(panes.paneStatus + (panes.progressVisible ? "bar " : "") +
                    (panes.totalStretched ? "total stretched " : "") +
                    std::to_string(panes.progressMax),
                expected);
      EXPECT_EQ(panes.paneResult.ends_with(" of 2"), panes.progressVisible) << "group rows aside";
      EXPECT_EQ(view.buttons, "00001");
      EXPECT_TRUE(!view.elements && view.waiting && commands.Busy());
    };
    (commands.*command)();
    EXPECT_GT(events.count, 0);
    EXPECT_TRUE(state.panes.totalStretched && !state.panes.progressVisible);
  }
}

TEST_F(CommandsTest, TellWhyTheListIsEmpty) {
  files.folders.insert(
      {"", "/locked", "/bare", "/bare/.git", "/up", "/up/sub", "/shut", "/shut/a"});
  files.contents["/up/sub/file"] = "";
  files.locked = {"/locked", "/shut/a"};
  const std::pair<SourceOptions, EmptyList> table[] = {
      {{"  /nowhere/ ", "", "", true}, EmptyList::kFolderMissing},
      {{"/up", "", "", false}, EmptyList::kSeparatorMissing},
      {{"/locked/", "", "", true}, EmptyList::kFolderUnreadable},
      {{"/bare/", "*.jpg;*.png", "", false}, EmptyList::kNoFile},
      {{"/up/", "", "", false}, EmptyList::kOnlySubfolders},
      {{"/shut/", "", "", true}, EmptyList::kSubfolderUnreadable},
      {{"/in/", "", "*", true}, EmptyList::kNoMatch},
      {{"/in/", "*.jpg;*.png", "", true}, EmptyList::kMasksNotParted},
      {{"/in/", "", "*.txt *,", true}, EmptyList::kMasksNotParted},
  };
  for (const auto& [source, reason] : table) {
    SCOPED_TRACE(source.fdSourceFolder + source.fdIncludeMask);
    view.source = source;
    state.panes.paneTotal = "";
    EXPECT_EQ(Walk("l"), "4");
    EXPECT_EQ(view.source.fdSourceFolder, text::Trim(source.fdSourceFolder));
    EXPECT_EQ(view.empty, reason);
    EXPECT_EQ(state.panes.paneTotal, "Total 0 files");
  }
  view.source = {"/in/", "", "", false};
  clock.step_ms = 50;
  Walk("l6");
  EXPECT_EQ(view.empty, EmptyList::kNotComplete);
  EXPECT_EQ(records.Count(), 1u) << "what was found stays out of sight";
  EXPECT_TRUE(grid.RowCount() == 0 && view.focus_away);
}

TEST_F(CommandsTest, AskBeforeAListTouchesTheSystem) {
  Walk("l p");
  facts.system_folders = {"/in"};
  const auto touch = [&](const char* setting, bool goes_on) {
    settings.values[{"Settings", "CheckForSystemFolders"}] = setting;
    view.asked.clear();
    view.goes_on = goes_on;
    return Walk("l") + " " + view.asked;
  };
  EXPECT_EQ(touch("1", false), "5 /in");
  EXPECT_EQ(records[0].newFileName, "x a.txt") << "declined, all stays";
  EXPECT_EQ(touch("1", true), "3 /in");
  EXPECT_EQ(touch("0", false), "3 ");
  view.source.fdSourceFolder = "/./in/";
  EXPECT_EQ(touch("1", false), "3 /in") << "written otherwise";
  const auto misread = [&] { EXPECT_EQ(touch("often", false), "3 /in"); };
  EXPECT_THAT(FailureReport(misread), testing::StartsWith("Type mismatch"));
}

TEST_F(CommandsTest, KeepThePreviewStaleUntilOneIsWhole) {
  Walk("l l");
  EXPECT_EQ(grid.RowCount(), 3u) << "a group row and two files";
  EXPECT_EQ(state.panes.paneTotal, "Total 2 files") << "counted anew";
  const int before = view.repaints;
  for (int i = 0; i < 2; ++i) commands.MarkStale();
  EXPECT_EQ(view.repaints, before + 1) << "not at each letter that is typed";
  EXPECT_TRUE((Walk("p2"), state.gPreviewStale));
  EXPECT_EQ(records[0].newFileName, "") << "the group row came first";
  EXPECT_FALSE((Walk("p"), state.gPreviewStale));
}

TEST_F(CommandsTest, SayBeforeARunWhatIsTickedAndWhatIsWrongWithTheNames) {
  files.contents = {{"/in/a.jpg", ""}, {"/in/abc.txt", ""}, {"/in/b", ""}};
  constructor.ArrConstr = {{.ItemType = kSourceFileName, .transform = {.Cut = 2, .CutN = 1}},
                           {.ItemType = kText, .ItemText = "."},
                           {.ItemType = kExtension}};
  const std::string& line = state.panes.paneResult;
  const auto tick = [&](std::size_t record, bool on) {
    records[record].checked = on;
    return commands.TicksChanged(), line;
  };
  commands.TicksChanged();
  EXPECT_EQ(line, "") << "nothing is listed";
  view.output = {kCopyTo, "/out/", false};
  Walk("l");
  EXPECT_EQ(line, "") << "all are ticked";
  EXPECT_EQ(tick(0, false), "2 of 3 files ticked");
  Walk("p2");
  EXPECT_EQ(line, "2 of 3 files ticked") << "cancelled";
  Walk("p");
  EXPECT_EQ(line, "1 new name, 1 empty");
  EXPECT_EQ(tick(0, true), "");
  Walk("p");
  EXPECT_EQ(line, "2 new names, 1 empty, 1 only an extension");
  constructor.ArrConstr[1].ItemText = "....";
  commands.MarkStale();
  EXPECT_EQ(line, "");
  Walk("p");
  EXPECT_EQ(line, "2 new names, 1 empty, 2 too long");
  tick(1, false);
  commands.Check(*FindCheckOperation(kInvertSelection));
  EXPECT_EQ(line, "1 of 3 files ticked");
  tick(1, false);
  EXPECT_EQ((Walk("p"), line), "0 new names, 0 of 3 files ticked");
  EXPECT_EQ((Walk("r"), line), "0 copied, 0 of 3 files ticked");
}

TEST_F(CommandsTest, AskForAWholeOutputFolderAndDoNothingWithoutAFolderOrElements) {
  view.source.fdSourceFolder = "  ";
  EXPECT_EQ(Walk("l"), "1");
  view.source.fdSourceFolder = "/in/";
  EXPECT_EQ(Walk("l p"), "3 5");
  view.output = {kCopyTo, "", true};
  EXPECT_EQ(Walk("r"), "5");
  view.output = {kMoveTo, "pictures/", true};
  EXPECT_EQ(Walk("r"), "5");
  ASSERT_EQ(prompts.told.size(), 2u);
  EXPECT_NE(prompts.told[0], prompts.told[1]);
  view.output = {kUseSourceFolder, "pictures/", true};
  EXPECT_EQ(Walk("r"), "8") << "the folder isn't used";
  for (const auto& [mode, result] : {std::pair(kCopyTo, "2 copied"), {kMoveTo, "2 moved"}}) {
    view.output = {mode, "/out/", true};
    Walk("u p r");
    EXPECT_EQ(state.panes.paneResult, result);
  }
  constructor.ArrConstr.clear();
  EXPECT_EQ(Walk("u l p"), "10 3 3");
}

TEST_F(CommandsTest, TellThatAPassWasCancelled) {
  std::string modes;
  prompts.on_tell = [&] { modes += std::to_string(commands.Mode()) + " "; };
  Walk("l p r2");
  EXPECT_EQ(state.panes.paneStatus, "Renaming ") << "stays until another mode clears it";
  EXPECT_EQ(state.panes.progressValue, 1);
  Walk("r");
  EXPECT_EQ(state.panes.paneStatus, "");
  Walk("u2");
  EXPECT_EQ(state.panes.progressValue, 1) << "the bar runs backwards";
  ASSERT_EQ(prompts.told.size(), 2u);
  EXPECT_NE(prompts.told[1].find("still renamed"), std::string::npos);
  EXPECT_EQ(modes, "6 11 ");
  EXPECT_EQ(prompts.icons, "!!");
}

TEST_F(CommandsTest, ShowWhatWentOtherwiseThanPlanned) {
  files.contents["/in/c.txt"] = "c";
  constructor.ArrConstr.clear();
  constructor.InsertArrConstrItem(0, kText, "same");
  files.fails = [](std::string_view, std::string_view path) { return path == "/in/a.txt"; };
  Walk("l p r");
  EXPECT_EQ(view.shown, "1 failed 1 numbered ");
  EXPECT_EQ(state.panes.paneResult, "2 renamed, 1 failed, 1 numbered");
  files.fails = nullptr;
  Walk("u");
  EXPECT_TRUE(prompts.told.empty()) << "what failed has nothing to take back";
  view.shown.clear();
  files.fails = [](std::string_view, std::string_view) { return true; };
  Walk("p r2");
  EXPECT_EQ(reports.gFailureReport.size(), 1u);
  EXPECT_TRUE(view.shown.empty()) << "a cancelled run";
  files.fails = nullptr;
  constructor.InsertArrConstrItem(0, kSourceFileName, "");
  Walk("l p r");
  EXPECT_TRUE(view.shown.empty()) << "a clean run";
  EXPECT_TRUE(reports.gFailureReport.empty() && reports.gConflictReport.empty());
  files.contents["/in/a.txt"] = "a stranger";
  EXPECT_EQ(Walk("u"), "10");
  EXPECT_EQ(prompts.told.back(), "Undo failed for 1 file(s)");
  EXPECT_EQ(state.panes.paneResult, "2 undone, 1 failed");
  commands.EnableDisable(ModeFolderChosen);
  EXPECT_EQ(state.panes.paneResult, "");
  EXPECT_EQ(prompts.icons.back(), 'x');
  EXPECT_TRUE(view.shown.empty()) << "an undo tells its failures by number only";
}

TEST_F(CommandsTest, LeaveAUsableWindowAfterAFailure) {
  const auto expect = [&](const char* road, const char* modes, const char* handler) {
    EXPECT_THAT(FailureReport([&] { EXPECT_EQ(Walk(road), modes); }), testing::HasSubstr(handler));
  };
  view.source.fdIncludeMask = "[a";
  expect("l", "4", "bnLoadFileList_Click");
  EXPECT_TRUE(view.empty == EmptyList::kMaskFaulty && state.panes.paneTotal == "Total 0 files");
  view.source.fdIncludeMask = "";
  constructor.InsertArrConstrItem(0, kCounter, "");
  constructor.ArrConstr[0].counter.Start = 0x7FFFFFFF;
  expect("l p", "3 3", "bnPreview_Click");
  constructor.ArrConstr[0].counter.Start = 1;
  files.fails = [](std::string_view, std::string_view) -> bool { throw Failure(51, "broken"); };
  expect("p r", "5 9", "bnRename_Click");
  records[0].RowTag = 1;
  records[0].mode = kUseSourceFolder;
  expect("u", "11", "bnUndo_Click");
}

TEST_F(CommandsTest, NameWhatTheUserGaveAmiss) {
  const std::string m(40, 'm'), bracket = " has a bracket that isn't closed.";
  constexpr std::int32_t kMost = 0x7FFFFFFF;
  std::vector<ConstrItem>& items = constructor.ArrConstr;
  const std::pair<std::function<void()>, std::string> table[] = {
      {[&] { view.source.fdIncludeMask = "*.doc \"a [b\""; }, "The include mask “a [b”" + bracket},
      {[&] { view.source.fdIncludeMask = m + "[[]ب[" + m; },
       "The include mask “…mmmmmmmm[[]ب[" + m.substr(23) + "…”" + bracket},
      {[&] { view.source.fdExcludeMask = m + "[a"; },
       "The exclude mask “…" + m.substr(28) + "[a”" + bracket},
      {[&] {
         Walk("l"), view.mask_given = "a[", commands.Check(*FindCheckOperation(kCheckByMask));
       },
       "The mask “a[”" + bracket},
      {[&] { items[0] = {.ItemType = kCounter, .counter = {.Start = kMost}}; },
       "The counter that starts at 2,147,483,647 passes 2,147,483,647; start it lower."},
      {[&] { items[3].transform = {.Cut = 5, .CutN = kMost, .CutX = 1}; },
       "In “File extension options”, N and K are too large together; make one of them smaller."},
      {[&] { items[3].transform = {.Replace1 = "t", .Replace2 = std::string(20'000, 'x')}; },
       "In “File extension options”, “Replace” makes a name longer than 32767 characters; put in a "
       "shorter text."},
      {[&] { files.fails = [](auto, auto) -> bool { throw Failure(51, "a fault"); }; }, ""}};
  const std::vector<ConstrItem> plain = items;
  for (const auto& [give, slip] : table) {
    items = plain;
    view.source = {"/in/", "", "", false};
    const Reported reported = ReportOf([&, give = give] { give(), Walk("l p r"); });
    EXPECT_EQ(reported.slip, slip);
    EXPECT_NE(reported.report, "");
  }
}

TEST_F(CommandsTest, CheckOperationsMakeThePreviewStaleUnlessCancelledOrRefused) {
  std::string report;
  const auto check = [&](RowCommand id, std::optional<std::string> mask = {}) {
    view.mask_given = std::move(mask);
    state.gPreviewStale = false;
    report = FailureReport([&] { commands.Check(*FindCheckOperation(id)); });
    EXPECT_FALSE(view.waiting);
    return state.gPreviewStale;
  };
  EXPECT_TRUE(check(kCheckAll)) << "of an empty list too";
  Walk("l p");
  EXPECT_FALSE(check(kUnCheckByMask));
  EXPECT_FALSE(check(kUnCheckByMask, "a* [b"));
  EXPECT_THAT(report, testing::HasSubstr("str='a* [b'"));
  EXPECT_TRUE(records[0].checked && view.buttons[2] == '1') << "a mask that fails changes nothing";
  EXPECT_TRUE(check(kUnCheckByMask, "a*"));
  EXPECT_TRUE(view.buttons[2] == '0' && !records[0].checked);
  EXPECT_EQ(view.shown, "Uncheck by mask (*.*) Uncheck by mask (*.*) Uncheck by mask (a* [b) ");
}
