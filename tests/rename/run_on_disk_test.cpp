#include <gtest/gtest.h>
#include <sys/resource.h>

#include <map>
#include <string>

#include "core/records.h"
#include "filelist/scan.h"
#include "rename/run.h"
#include "rename/undo.h"
#include "support/fake_services.h"
#include "support/temp_folder.h"

namespace {

/// Lists a real folder, gives names to rows, and runs. Every file holds its first name, so that a
/// lost or mixed-up one shows.
class RunOnDisk : public testing::Test {
 protected:
  void Add(const std::string& name) { folder.Write(name, name); }

  void Scan() { ScanFolder(folder.path() + "/"); }

  void ScanFolder(const std::string& path) {
    records.DeleteAll();
    state.gFileCount = 0;
    Pass pass(records, state, on_disk, 0);
    mScanCD::Scan(pass, {path, "", "", true}, types).ShowDir3_FillPreview("in", path);
    for (std::size_t i = 0; i < records.Count(); ++i) {
      records[i].newFileName = records[i].sourceFileName;
    }
  }

  void Plan(const std::map<std::string, std::string>& names) {
    for (std::size_t i = 0; i < records.Count(); ++i) {
      const auto planned = names.find(records[i].sourceFileName);
      records[i].checked = planned != names.end();
      if (planned != names.end()) records[i].newFileName = planned->second;
    }
  }

  void Run(const RunOutput& output = {}) {
    RunReports reports;
    Pass pass(records, state, on_disk, records.Count());
    RenameRun(pass, output, reports).RunRename();
    files->LetFoldersGo();
  }

  std::size_t Undo() {
    RunReports reports;
    Pass pass(records, state, on_disk, records.Count());
    UndoRun(pass, reports).Undo();
    files->LetFoldersGo();
    return reports.gFailureReport.size();
  }

  char MarkOf(const std::string& name) const {
    for (std::size_t i = 0; i < records.Count(); ++i) {
      if (records[i].sourceFileName == name) return MarkText(records[i].mark)[0];
    }
    return '?';
  }

  TempFolder folder;
  FakeServices fakes;
  FakeEvents& events = fakes.events;
  std::unique_ptr<FileSystem> files = MakePosixFileSystem();
  const Services on_disk = fakes.With(*files, fakes.clock, fakes.locale);
  Records records;
  RunState state;
  FileTypes types{fakes.type_names};
};

}  // namespace

TEST_F(RunOnDisk, EndsEveryRowWithEveryFileWhole) {
  const std::string bad("bad\xFF\xFE"), line("two\nlines"), gone("gone");
  for (const std::string& name :
       {bad, line, gone, std::string("long"), std::string("out"), std::string("up"),
        std::string("nul"), std::string("link"), std::string("onto a link"),
        std::string("onto a twin"), std::string("onto a folder"), std::string("-rf")}) {
    Add(name);
  }
  folder.MakeLink("dangling", "/nowhere/at all");
  folder.MakeFolder("subfolder");
  ASSERT_EQ(::link((folder / "onto a twin").c_str(), (folder / "twin").c_str()), 0);
  Scan();
  state.numbering.gConflictAddNumber = 0;
  Plan({{bad, "good"},
        {line, "bad\xFE\n again"},
        {gone, "never"},
        {"long", std::string(300, 'x')},
        {"out", "subfolder/out"},
        {"up", "../up"},
        {"nul", std::string("a\0b", 3)},
        {"onto a link", "dangling"},
        {"onto a twin", "twin"},
        {"onto a folder", "subfolder"},
        {"-rf", "rf "}});
  ASSERT_EQ(::unlink((folder / gone).c_str()), 0);
  Run();
  for (const std::string& name : {bad, line, std::string("-rf")}) EXPECT_EQ(MarkOf(name), 'D');
  for (const char* name :
       {"gone", "long", "out", "up", "nul", "onto a link", "onto a twin", "onto a folder"}) {
    EXPECT_EQ(MarkOf(name), 'F') << name;
    if (name != gone) {
      EXPECT_EQ(folder.Read(name), name);
    }
  }
  EXPECT_EQ(folder.Read("good"), bad);
  EXPECT_EQ(folder.Read("bad\xFE\n again"), line);
  EXPECT_EQ(folder.Read("rf "), "-rf");
  EXPECT_EQ(folder.List("subfolder").size(), 0u);
  EXPECT_EQ(folder.List().size(), 14u) << "no file more and none less";
}

TEST_F(RunOnDisk, LeavesNothingOfACopyThatCanNotBeWhole) {
  const std::string content(100'000, 'x');
  folder.Write("large", content);
  folder.Write("small", "s");
  ASSERT_EQ(::mkfifo((folder / "fifo").c_str(), 0600), 0);
  Scan();
  TempFolder out;
  struct rlimit old;
  ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &old), 0);
  const struct rlimit small { 50'000, old.rlim_max };
  ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &small), 0);
  Run({kCopyTo, out.path() + "/", false, folder.path() + "/"});
  ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &old), 0);
  EXPECT_EQ(MarkOf("large"), 'F');
  EXPECT_EQ(MarkOf("fifo"), 'F') << "and nobody waited for it";
  EXPECT_EQ(MarkOf("small"), 'D');
  EXPECT_EQ(out.List(), std::vector<std::string>{"small"});
  EXPECT_EQ(folder.Read("large"), content);
}

TEST_F(RunOnDisk, TouchesNothingInAFolderThatTookThePlaceOfAnother) {
  // Another folder, or a link to one, comes to `place` before or in the run, or before its undo.
  const struct {
    const char* what;
    int mode;
    const char* place;
    int at_event;  ///< of the run; 0 is after it
    const char* marks;
  } table[] = {{"source", kUseSourceFolder, "in", 1, "FFF"},
               {"source in the run", kUseSourceFolder, "in", 2, "DFF"},
               {"output of copies", kCopyTo, "out", 2, "DFF"},
               {"output of moves", kMoveTo, "out", 3, "DDF"},
               {"output before undo", kMoveTo, "out", 0, "DDD"},
               {"source before undo", kUseSourceFolder, "in", 0, "DDD"}};
  for (const auto& row : table) {
    for (const bool link : {false, true}) {
      SCOPED_TRACE(std::string(row.what) + (link ? ", a link" : ""));
      const TempFolder tree;
      for (const char* name : {"in", "out", "other"}) tree.MakeFolder(name);
      for (const char* name : {"a", "b", "c"}) tree.Write(std::string("in/") + name, name);
      for (const char* name : {"a", "b", "x"}) tree.Write(std::string("other/") + name, "stranger");
      ScanFolder(tree / "in/");
      Plan({{"a", "x"}, {"b", "y"}, {"c", "z"}});
      const auto replace = [&] {
        std::filesystem::rename(tree / row.place, tree / "away");
        if (link) tree.MakeLink(row.place, tree / "other");
        if (!link) std::filesystem::rename(tree / "other", tree / row.place);
      };
      events.count = 0;
      events.on_events = [&] {
        if (events.count == row.at_event) replace();
      };
      Run({row.mode, tree / "out/", false, tree / "in/"});
      std::string marks;
      for (std::size_t i = 0; i < records.Count(); ++i) marks += MarkText(records[i].mark)[0];
      EXPECT_EQ(marks, row.marks);
      if (row.at_event == 0) {
        replace();
        EXPECT_EQ(Undo(), 3u);
      } else {
        EXPECT_EQ(records[2].problem, kFolderReplaced);
      }
      const std::string other = link ? "other" : row.place;
      EXPECT_EQ(tree.List(other), (std::vector<std::string>{"a", "b", "x"}));
      for (const char* name : {"/a", "/b", "/x"}) EXPECT_EQ(tree.Read(other + name), "stranger");
    }
  }
}

TEST_F(RunOnDisk, TellsWhyNothingCanBePutIntoAnOutputFolder) {
  Add("a");
  Add("file");
  Scan();
  const std::pair<std::string, int> table[] = {
      {folder / "file/", ENOTDIR}, {folder / "file/below/", ENOTDIR}, {"/proc/none/", ENOENT}};
  for (const auto& [output, problem] : table) {
    Run({kMoveTo, output, false, folder / ""});
    EXPECT_EQ(records[0].problem, problem) << output;
  }
  EXPECT_EQ(folder.List(), (std::vector<std::string>{"a", "file"}));
}
