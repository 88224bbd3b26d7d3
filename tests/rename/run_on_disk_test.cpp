#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <string>
#include <tuple>

#include "core/records.h"
#include "filelist/scan.h"
#include "platform/posix/faults.h"
#include "platform/posix/files_posix.h"
#include "rename/run.h"
#include "rename/undo.h"
#include "support/fake_services.h"
#include "support/temp_folder.h"

namespace {

/// Lists a real folder with new names for its files, and runs.
class RunOnDisk : public testing::Test {
 protected:
  void Scan(const std::string& path, const std::map<std::string, std::string>& plan) {
    records.DeleteAll();
    state.gFileCount = 0;
    FileTypes types{fakes.type_names};
    Pass pass(records, state, on_disk, 0);
    mScanCD::Scan(pass, {path, "", "", true}, types).ShowDir3_FillPreview("in", path);
    for (std::size_t i = 0; i < records.Count(); ++i) {
      records[i].newFileName = plan.at(records[i].sourceFileName);
    }
  }

  /// Answers the first letter of each row's mark.
  std::string Run(const RunOutput& output = {}, bool undo = false) {
    RunReports reports;
    Pass pass(records, state, on_disk, records.Count());
    if (undo) UndoRun(pass, reports).Undo();
    if (!undo) RenameRun(pass, output, reports).RunRename();
    files->LetFoldersGo();
    std::string marks;
    for (std::size_t i = 0; i < records.Count(); ++i) marks += MarkText(records[i].mark)[0];
    return marks;
  }

  TempFolder folder;
  FakeServices fakes;
  Fault calls;  ///< never comes, but counts
  std::unique_ptr<FileSystem> files = [this] {
    Syscalls counted;
    Inject(counted, calls);
    return MakePosixFileSystem(counted);
  }();
  const Services on_disk = fakes.With(*files, fakes.clock, fakes.locale);
  Records records;
  RunState state;
};

}  // namespace

TEST_F(RunOnDisk, TouchesNothingInAFolderThatTookThePlaceOfAnother) {
  // Another folder, or a link to one, comes to the place before or in the run, or before its undo.
  const std::tuple<int, const char*, int, const char*> table[] = {
      {kUseSourceFolder, "in", 1, "FFF"}, {kUseSourceFolder, "in", 2, "DFF"},
      {kCopyTo, "out", 2, "DFF"},         {kMoveTo, "out", 3, "DDF"},
      {kMoveTo, "out", 0, "DDD"},         {kUseSourceFolder, "in", 0, "DDD"}};
  for (int i = 0; i < 12; ++i) {
    const auto& [mode, place, at_event, marks] = table[i / 2];
    const bool link = i % 2 == 1;
    SCOPED_TRACE(testing::Message() << mode << " " << place << " " << at_event << " link " << link);
    const TempFolder tree;
    for (const char* name : {"in", "out", "other"}) tree.MakeFolder(name);
    for (const char* name : {"in/a", "in/b", "in/c"}) tree.Write(name, name);
    for (const char* name : {"other/a", "other/b", "other/x"}) tree.Write(name, "stranger");
    Scan(tree / "in/", {{"a", "x"}, {"b", "y"}, {"c", "z"}});
    const auto replace = [&, at = tree / place] {
      std::filesystem::rename(at, tree / "away");
      if (link) std::filesystem::create_symlink(tree / "other", at);
      if (!link) std::filesystem::rename(tree / "other", at);
    };
    fakes.events.count = 0;
    fakes.events.on_events = [&, event = at_event] {
      if (fakes.events.count == event) replace();
    };
    EXPECT_EQ(Run({mode, tree / "out/", false, tree / "in/"}), marks);
    if (at_event == 0) {
      replace();
      EXPECT_EQ(Run({}, true), "DDD") << "nothing is taken back";
    }
    EXPECT_EQ(records[2].problem, kFolderReplaced);
    const std::string other = link ? "other" : place;
    EXPECT_EQ(tree.List(other), (std::vector<std::string>{"a", "b", "x"}));
    for (const char* name : {"/a", "/b", "/x"}) EXPECT_EQ(tree.Read(other + name), "stranger");
  }
}

TEST_F(RunOnDisk, AsksTheSystemOnceForEachFile) {
  const TempFolder tree("/dev/shm");
  std::map<std::string, std::string> plan;
  for (int i = 0; i < 900; ++i) {
    const std::string sub = std::to_string(i % 3), name = "\u00E9 " + std::to_string(i);
    if (i < 3) tree.MakeFolder(sub);
    tree.Write(sub + "/" + name, "");
    plan[name] = "new " + name;
  }
  Scan(tree / "", plan);
  for (const bool undo : {false, true}) {
    calls.used = fakes.events.count = 0;
    EXPECT_EQ(Run({}, undo), std::string(900, undo ? '>' : 'D'));
    // And each folder is looked at when it comes, and when events ran.
    EXPECT_LE(calls.used, 900 + fakes.events.count + 3 * 10) << "undo " << undo;
  }
}

TEST_F(RunOnDisk, TellsWhyNothingCanBePutIntoAnOutputFolder) {
  for (const char* name : {"a", "file"}) folder.Write(name, name);
  Scan(folder / "", {{"a", "a"}, {"file", "file"}});
  const std::pair<std::string, int> table[] = {
      {folder / "file/", ENOTDIR}, {folder / "file/below/", ENOTDIR}, {"/proc/none/", ENOENT}};
  for (const auto& [output, problem] : table) {
    Run({kMoveTo, output, false, folder / ""});
    EXPECT_EQ(records[0].problem, problem) << output;
  }
  EXPECT_EQ(folder.List(), (std::vector<std::string>{"a", "file"}));
}
