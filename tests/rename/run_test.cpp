#include "rename/run.h"

#include <gtest/gtest.h>

#include "rename/undo.h"
#include "support/fake_services.h"

// What the comparison with the plain model can't see; see model_test.cpp.

namespace {

/// Rows over the files a, b and c of /in, each planned to get its name with ".new".
class RunTest : public testing::Test, protected FakeServices {
 protected:
  void SetUp() override {
    files.folders = {"/in", "/out"};
    for (const char* name : {"a", "b", "c"}) {
      records.AddRecord("", "/in/", name, FileDate(), 0, "");
      records[records.Count() - 1].newFileName = std::string(name) + ".new";
      files.contents[std::string("/in/") + name] = name;
    }
  }

  bool Run(bool undo = false) {
    reports.DeleteAll();
    Pass pass(records, state, services, records.Count());
    return undo ? UndoRun(pass, reports).Undo() : RenameRun(pass, output, reports).RunRename();
  }
  bool Undo() { return Run(true); }

  Records records;
  RunState state;
  RunReports reports;
  RunOutput output{kUseSourceFolder, "/out/", false, "/in/"};
};

}  // namespace

TEST_F(RunTest, TellsWhyAFileFailed) {
  const std::tuple<std::string, RunOutput, int> table[] = {
      {"", output, kEmptyName},
      {"../x", output, kNameHoldsSeparator},
      {"x", {kLastOutputMode + 1, "/out/", false, "/in/"}, kNoSuchMode},
      {"x", {kCopyTo, "out/", false, "/in/"}, kFolderNotAbsolute},
      {"c", output, EEXIST},
      {std::string(300, 'x'), output, ENAMETOOLONG},
  };
  state.numbering.gConflictAddNumber = 0;
  records[1].checked = records[2].checked = false;
  for (const auto& [new_name, its_output, problem] : table) {
    SCOPED_TRACE(problem);
    records[0].newFileName = new_name;
    output = its_output;
    EXPECT_TRUE(Run());
    EXPECT_EQ(records[0].mark, Mark::kFailed);
    EXPECT_EQ(records[0].problem, problem);
    ASSERT_EQ(reports.gFailureReport.size(), 1u);
    EXPECT_EQ(reports.gFailureReport[0].problem, problem);
    EXPECT_EQ(files.folders.size(), 2u) << "nothing is made for it";
  }
  records[0].newFileName = "x";
  output = {};
  EXPECT_TRUE(Run());
  EXPECT_EQ(records[0].problem, 0) << "it was done at last";
  records[1].checked = true;
  output = {kMoveTo, "/in/a/", false, "/in/"};
  Run();
  EXPECT_EQ(records[1].problem, kFolderInTheWay) << "undo needs that name";
  EmptyRollback(records);
  EXPECT_EQ(MarkText(records[0].mark), ">>");
  EXPECT_TRUE(Undo());
  EXPECT_TRUE(files.contents.contains("/in/x")) << "it can't be taken back any more";
}

TEST_F(RunTest, TellsWhyAFileWasNotTakenBack) {
  output.chosen.cmbDestination = kCopyTo;
  Run();
  files.contents["/in/a"] = "another";
  files.contents["/out/b.new"] = "another";
  Undo();
  EXPECT_EQ(records[0].problem, kOriginalGone);
  EXPECT_EQ(records[1].problem, kNotTheCopy);
  EXPECT_EQ(records[2].problem, 0);
  ASSERT_EQ(reports.gFailureReport.size(), 2u);
  EXPECT_EQ(reports.gFailureReport[1].problem, kNotTheCopy);
}

TEST_F(RunTest, MovesAFileAsideAgainForWhoWantsTheNameItHasThere) {
  records[0].newFileName = "c";
  records[1].newFileName = "c_{1}";
  Run();
  EXPECT_EQ(records[1].newFileName, "c_{1}");
}

TEST_F(RunTest, CancelledAtAnyEventOfARunOrUndoAllComesBack) {
  clock.step_ms = 60;  // events run whenever they may
  const auto before = files.contents;
  const auto cancelled = [&](int at, bool undo) {
    events.count = 0;
    events.on_events = [&, at] { state.gCancelRequested |= events.count == at; };
    const bool done = Run(undo);
    events.on_events = nullptr;
    state.gCancelRequested = false;
    return !done;
  };
  for (const RunOutput& its_output : {output, RunOutput{kMoveTo, "/in/new/x/", false, "/in/"}}) {
    output = its_output;
    int at = 0;
    for (bool in_run = true, in_undo = true; in_run || in_undo;) {
      ++at;
      for (std::size_t i = 0; i < 3; ++i) records[i].newFileName = std::string(1, "bca"[i]);
      in_run = cancelled(at, false);
      in_undo = cancelled(at, true);
      EXPECT_TRUE(Undo());
      ASSERT_EQ(files.contents, before) << at;
      ASSERT_EQ(files.folders.size(), 2u) << at;
    }
    EXPECT_GT(at, 6);
  }
}
