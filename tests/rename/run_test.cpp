#include "rename/run.h"

#include <gtest/gtest.h>

#include "rename/undo.h"
#include "support/fake_services.h"

// What the comparison with the plain model can't see; see model_test.cpp.

namespace {

/// Rows over files of /in, each planned to get its name with ".new".
class RunTest : public testing::Test, protected FakeServices {
 protected:
  void SetUp() override {
    files.folders = {"/in", "/out"};
    for (const char* name : {"a", "b", "c"}) {
      records.AddRecord("", "/in/", name, FileDate(), 0, "");
      Plan(records.Count() - 1, std::string(name) + ".new");
      files.contents[std::string("/in/") + name] = name;
    }
  }

  void Plan(std::size_t row, const std::string& name) { records[row].newFileName = name; }

  bool Run() {
    reports.DeleteAll();
    Pass pass(records, state, services, records.Count());
    return RenameRun(pass, output, reports).RunRename();
  }

  bool Undo() {
    reports.DeleteAll();
    Pass pass(records, state, services, records.Count());
    return UndoRun(pass, reports).Undo();
  }

  Records records;
  RunState state;
  RunReports reports;
  RunOutput output{kUseSourceFolder, "/out/", false, "/in/"};
};

}  // namespace

TEST_F(RunTest, TellsWhyAFileFailed) {
  const struct {
    std::string new_name;
    RunOutput output;
    int problem;
  } table[] = {
      {"", output, kEmptyName},
      {"../x", output, kNameHoldsSeparator},
      {"x", {3, "/out/", false, "/in/"}, kNoSuchMode},
      {"x", {kCopyTo, "out/", false, "/in/"}, kFolderNotAbsolute},
      {"c", output, EEXIST},
      {std::string(300, 'x'), output, ENAMETOOLONG},
  };
  state.numbering.gConflictAddNumber = 0;
  records[1].checked = records[2].checked = false;
  for (const auto& row : table) {
    SCOPED_TRACE(row.problem);
    Plan(0, row.new_name);
    output = row.output;
    EXPECT_TRUE(Run());
    EXPECT_EQ(records[0].mark, Mark::kFailed);
    EXPECT_EQ(records[0].problem, row.problem);
    ASSERT_EQ(reports.gFailureReport.size(), 1u);
    EXPECT_EQ(reports.gFailureReport[0].problem, row.problem);
    EXPECT_EQ(files.folders.size(), 2u) << "nothing is made for it";
  }
  Plan(0, "x");
  output = {};
  EXPECT_TRUE(Run());
  EXPECT_EQ(records[0].problem, 0) << "it was done at last";
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

TEST_F(RunTest, MakesNoFolderWhereUndoNeedsAName) {
  records[1].checked = records[2].checked = false;
  Run();
  output = {kMoveTo, "/in/a/", false, "/in/"};
  records[1].checked = true;
  Run();
  EXPECT_EQ(records[1].problem, kFolderInTheWay);
}

TEST_F(RunTest, MovesTheFilesOfASwapInThisOrder) {
  Plan(0, "b");
  Plan(1, "a");
  records[2].checked = false;
  Run();
  Undo();
  EXPECT_EQ(files.log, (std::vector<std::string>{"move /in/b /in/b_{1}", "move /in/a /in/b",
                                                 "move /in/b_{1} /in/a", "move /in/a /in/a_{1}",
                                                 "move /in/b /in/a", "move /in/a_{1} /in/b"}));
}

TEST_F(RunTest, CanNotBeTakenBackOnceRollbackIsEmptied) {
  Run();
  EmptyRollback(records);
  EXPECT_EQ(records[0].RowTag, 0);
  EXPECT_EQ(MarkText(records[0].mark), ">>");
  EXPECT_TRUE(Undo());
  EXPECT_TRUE(files.contents.contains("/in/a.new"));
}
