#include "rename/run.h"

#include <gtest/gtest.h>

#include "rename/undo.h"
#include "support/fake_services.h"
#include "support/memory_files.h"

namespace {

struct PlannedRow {
  const char* name;
  const char* new_name;
  bool checked = true;
};

/// Rows over files of /in that hold their own first names, so that a mixed-up file shows.
class RunTest : public testing::Test, protected FakeServices {
 protected:
  void SetUp() override { files.folders = {"/in", "/in/sub", "/out"}; }

  void Plan(const std::vector<PlannedRow>& rows, const std::string& folder = "/in/") {
    for (const PlannedRow& planned : rows) {
      records.AddRecord("", folder, planned.name, FileDate(), 0, "");
      FileRow& row = records[records.Count() - 1];
      row.newFileName = planned.new_name;
      row.checked = planned.checked;
      files.contents[folder + planned.name] = planned.name;
    }
    state.gRowCounted.assign(records.Count(), 0);
  }

  void Run() {
    reports.DeleteAll();
    Pass pass(records, state, services, records.Count());
    RenameRun(pass, output, reports).RunRename();
  }

  void Undo() {
    reports.DeleteAll();
    Pass pass(records, state, services, records.Count());
    UndoRun(pass, reports).Undo();
  }

  /// A letter a row: "d"one, "F"ailed, or ">".
  std::string Marks() const {
    std::string marks;
    for (std::size_t i = 0; i < records.Count(); ++i) {
      marks += MarkText(records[i].mark)[0] == 'D' ? 'd' : MarkText(records[i].mark)[0];
    }
    return marks;
  }

  /// The files under `folder` as "name=content".
  std::string Files(const std::string& folder = "/in/") const {
    std::string list;
    for (const auto& [path, content] : files.contents) {
      if (path.starts_with(folder)) list += path.substr(folder.size()) + "=" + content + " ";
    }
    return list;
  }

  Records records;
  RunState state;
  RunReports reports;
  OutputOptions output{kUseSourceFolder, "", true, "/in/"};
};

}  // namespace

TEST_F(RunTest, RenamesInPlace) {
  const struct {
    const char* what;
    std::vector<PlannedRow> rows;
    int add_number;
    const char* marks;
    const char* files;
  } table[] = {
      {"plain", {{"a", "b"}}, 1, "d", "b=a "},
      {"onto itself", {{"a", "a"}}, 1, "d", "a=a "},
      {"unchecked", {{"a", "b", false}, {"c", "d"}}, 1, ">d", "a=a d=c "},
      {"swap", {{"a", "b"}, {"b", "a"}}, 1, "dd", "a=b b=a "},
      {"swap without numbering", {{"a", "b"}, {"b", "a"}}, 0, "dd", "a=b b=a "},
      {"chain", {{"a", "b"}, {"b", "c"}}, 1, "dd", "b=a c=b "},
      {"chain against the order", {{"b", "c"}, {"a", "b"}}, 1, "dd", "b=a c=b "},
      {"cycle", {{"a", "b"}, {"b", "c"}, {"c", "a"}}, 1, "ddd", "a=c b=a c=b "},
      {"one name", {{"a", "x"}, {"b", "x"}, {"c", "x"}}, 1, "ddd", "x=a x_{1}=b x_{2}=c "},
      {"one name unnumbered", {{"a", "x"}, {"b", "x"}}, 0, "dF", "b=b x=a "},
      {"holder unchecked", {{"a", "b"}, {"b", "c", false}}, 1, "d>", "b=b b_{1}=a "},
      {"holder keeps its name", {{"a", "b"}, {"b", "b"}}, 1, "dd", "b=b b_{1}=a "},
      {"separator in a name", {{"a", "sub/b"}, {"c", "../d"}}, 1, "FF", "a=a c=c "},
      {"empty name", {{"a", ""}}, 1, "F", "a=a "},
      {"name of a folder", {{"a", "sub"}}, 1, "d", "sub_{1}=a "},
  };
  for (const auto& row : table) {
    SCOPED_TRACE(row.what);
    files.contents.clear();
    records.DeleteAll();
    state.gConflictAddNumber = static_cast<std::int16_t>(row.add_number);
    Plan(row.rows);
    Run();
    EXPECT_EQ(Marks(), row.marks);
    EXPECT_EQ(Files(), row.files);
    EXPECT_EQ(state.panes.progressValue, static_cast<std::int64_t>(row.rows.size()));
    state.panes.progressValue = 0;
  }
}

TEST_F(RunTest, CopiesAndMovesIntoTheOutputFolder) {
  const struct {
    const char* what;
    OutputOptions output;
    int add_number;
    const char* marks;
    const char* in;
    const char* out;
  } table[] = {
      {"copy", {kCopyTo, "/out/", false, "/in/"}, 1, "dd", "a=a sub/b=b ", "n=a n_{1}=b "},
      {"copy unnumbered", {kCopyTo, "/out/", false, "/in/"}, 0, "dF", "a=a sub/b=b ", "n=a "},
      {"copy subfolders",
       {kCopyTo, "/out/", true, "/in/"},
       1,
       "dd",
       "a=a sub/b=b ",
       "n=a sub/n=b "},
      {"move", {kMoveTo, "/out/", false, "/in/"}, 1, "dd", "", "n=a n_{1}=b "},
      {"move to a new folder",
       {kMoveTo, "/out/x/y/", true, "/in/"},
       1,
       "dd",
       "",
       "x/y/n=a x/y/sub/n=b "},
      {"move into the source", {kMoveTo, "/in/", false, "/in/"}, 1, "dd", "n=a n_{1}=b ", ""},
      {"relative folder", {kCopyTo, "out", false, "/in/"}, 1, "FF", "a=a sub/b=b ", ""},
      {"no such mode", {3, "/out/", false, "/in/"}, 1, "FF", "a=a sub/b=b ", ""},
  };
  for (const auto& row : table) {
    SCOPED_TRACE(row.what);
    files.contents.clear();
    records.DeleteAll();
    output = row.output;
    state.gConflictAddNumber = static_cast<std::int16_t>(row.add_number);
    Plan({{"a", "n"}});
    Plan({{"b", "n"}}, "/in/sub/");
    Run();
    EXPECT_EQ(Marks(), row.marks);
    EXPECT_EQ(Files("/in/"), row.in);
    EXPECT_EQ(Files("/out/"), row.out);
  }
}

TEST_F(RunTest, NumbersACopyOntoItself) {
  output = {kCopyTo, "/in/", false, "/in/"};
  Plan({{"a", "a"}});
  Run();
  EXPECT_EQ(Files(), "a=a a_{1}=a ");
  EXPECT_EQ(records.NewPath(records[0]), "/in/");
}

TEST_F(RunTest, GoesOnAfterAFailureAndTriesAgain) {
  files.fails = [](std::string_view, std::string_view path) { return path == "/in/b"; };
  Plan({{"a", "x"}, {"b", "y"}, {"c", "z"}});
  Run();
  EXPECT_EQ(Marks(), "dFd");
  ASSERT_EQ(reports.gFailureReport.size(), 1u);
  EXPECT_EQ(reports.gFailureReport[0].source_name, "b");
  EXPECT_EQ(records[1].RowTag, 0);
  files.fails = nullptr;
  Run();
  EXPECT_EQ(Marks(), "ddd");
  EXPECT_EQ(Files(), "x=a y=b z=c ");
}

TEST_F(RunTest, NumbersTheNameOfAHolderThatCanNotBeMovedAside) {
  files.fails = [](std::string_view, std::string_view path) { return path == "/in/b"; };
  Plan({{"a", "b"}, {"b", "a"}});
  Run();
  EXPECT_EQ(Marks(), "dF");
  EXPECT_EQ(Files(), "b=b b_{1}=a ");
  EXPECT_EQ(records[1].Rollback(), "") << "the holder's row tells where its file is";
  EXPECT_EQ(records[1].problem, EIO);
  EXPECT_EQ(reports.gFailureReport[0].problem, EIO);
}

TEST_F(RunTest, MovesTheFilesOfASwapInThisOrder) {
  Plan({{"a", "b"}, {"b", "a"}});
  Run();
  Undo();
  EXPECT_EQ(files.log, (std::vector<std::string>{"move /in/b /in/b_{1}", "move /in/a /in/b",
                                                 "move /in/b_{1} /in/a", "move /in/a /in/a_{1}",
                                                 "move /in/b /in/a", "move /in/a_{1} /in/b"}));
}

TEST_F(RunTest, MakesNoFolderWhereUndoNeedsAName) {
  Plan({{"a", "b"}, {"c", "c"}});
  records[1].checked = false;
  Run();
  output = {kMoveTo, "/in/a/", false, "/in/"};
  records[1].checked = true;
  Run();
  EXPECT_EQ(Marks(), "dF");
  EXPECT_EQ(records[1].problem, kFolderInTheWay);
  Undo();
  EXPECT_EQ(Files(), "a=a c=c ");
  EXPECT_EQ(files.folders, (std::set<std::string>{"/in", "/in/sub", "/out"}));
}

TEST_F(RunTest, LeavesTheRestWhenCancelledAndGoesOnLater) {
  Plan({{"a", "b"}, {"b", "c"}, {"x", "y"}});
  events.on_events = [&] { state.gCancelRequested = events.count == 2; };
  Run();
  EXPECT_EQ(Marks(), "d>>");
  EXPECT_EQ(Files(), "b=a b_{1}=b x=x ") << "a holder waits under its numbered name";
  EXPECT_EQ(records[1].sourceFileName, "b_{1}");
  EXPECT_EQ(state.panes.progressValue, 1);
  state.gCancelRequested = false;
  Run();
  EXPECT_EQ(Marks(), "ddd");
  EXPECT_EQ(Files(), "b=a c=b y=x ");
  EXPECT_EQ(state.panes.progressValue, 3);
}

TEST_F(RunTest, LeavesTheRowAsItWasWhenCancelledInsideACopy) {
  output = {kCopyTo, "/out/", false, "/in/"};
  Plan({{"a", "n"}, {"b", "n"}, {"c", "m"}});
  int copies = 0;
  files.in_copy = [&] { state.gCancelRequested = ++copies == 2; };
  Run();
  EXPECT_EQ(Marks(), "d>>");
  EXPECT_EQ(records[1].newFileName, "n");
  EXPECT_EQ(records[1].PlannedName(), "");
  EXPECT_EQ(Files("/out/"), "n=a ");
  EXPECT_TRUE(reports.gFailureReport.empty());
}

TEST_F(RunTest, CanNotBeTakenBackOnceRollbackIsEmptied) {
  Plan({{"a", "b"}});
  Run();
  EmptyRollback(records);
  EXPECT_EQ(records[0].RowTag, 0);
  EXPECT_EQ(MarkText(records[0].mark), ">>");
  Undo();
  EXPECT_EQ(Files(), "b=a ");
  EXPECT_TRUE(reports.gFailureReport.empty());
}
