#include "filelist/scan.h"

#include <gtest/gtest.h>

#include <memory>

#include "platform/file_handle.h"
#include "support/fake_services.h"
#include "support/temp_folder.h"

struct ScanTest : testing::Test, FakeServices {
  ScanTest() {
    files.folders = {"/in", "/in/sub", "/in/sub/deep", "/in/.svn", "/inner"};
    for (const char* name : {"a.txt", "README", ".profile", "b.JPG", "sub/c10.txt", "sub/C9.txt",
                             "sub/deep/d.xyz", ".svn/e.txt"}) {
      files.contents[std::string("/in/") + name] = "12345";
    }
  }

  std::string Scanned(const SourceOptions& source) {
    records.DeleteAll();
    state.gFileCount = 0;
    Pass pass(records, state, services, 0);
    mScanCD::Scan scan(pass, source, types);
    scan.ShowDir3_FillPreview("in", source.fdSourceFolder);
    return Listed();
  }
  std::string Listed() const {
    std::string listed;
    for (std::size_t i = 0; i < records.Count(); ++i) {
      listed += records.ParentName(records[i]) + ":" + records[i].sourceFileName + " ";
    }
    return listed;
  }

  Records records;
  RunState state;
  FileTypes types{type_names};
};

TEST_F(ScanTest, TakesFilesByMaskAndFolderAndFillsTheirRows) {
  const std::pair<SourceOptions, const char*> table[] = {
      {{"/in/", "", "", false}, "in:.profile in:a.txt in:b.JPG in:README "},
      {{"/in/", "  ", " ", true},
       "in:.profile in:a.txt in:b.JPG in:README sub:C9.txt sub:c10.txt deep:d.xyz "},
      {{"/in/", "*.txt *.jpg", "", true}, "in:a.txt in:b.JPG sub:C9.txt sub:c10.txt "},
      {{"/in/", "*.txt *.jpg", "B*", false}, "in:a.txt "},
      {{"/in/", "nothing", "", true}, ""}};
  for (const auto& [source, scanned] : table) EXPECT_EQ(Scanned(source), scanned);
  EXPECT_EQ(state.panes.paneTotal, "Total 1 files") << "an empty scan leaves the last total";
  Scanned({"/in/", "a.txt b.jpg", "", false});
  EXPECT_EQ(records.Path(records[0]) + records[0].date.Text() + records.Type(records[0]),
            "/in/2001.01.02 03:04:05Text file");
  EXPECT_EQ(records[0].size, 5);
  EXPECT_EQ(records.Type(records[1]), "JPG File");
  EXPECT_EQ(types.GetFileType("README"), "File");
}

TEST_F(ScanTest, ReadsATypedFolderWithoutItsSeparatorAsTheBeginningOfNames) {
  EXPECT_EQ(Scanned({"/in", "", "", true}), "") << "the folders /in and /inner only";
  files.folders.insert("");
  files.contents["/info.txt"] = "";
  EXPECT_EQ(Scanned({"/in", "", "", false}), "in:info.txt ");
  EXPECT_EQ(records.Path(records[0]), "/in");
}

TEST_F(ScanTest, LetsEventsRunByTimeAndEndsAtOnceWhenTheUserCancels) {
  for (int i = 0; i < 500; ++i) files.contents["/in/f" + std::to_string(i)] = "";
  const SourceOptions all{"/in/", "f*", "", false};
  Scanned(all);
  EXPECT_LT(std::exchange(events.count, 0), 20);
  clock.step_ms = 50;
  Scanned(all);
  EXPECT_GT(std::exchange(events.count, 0), 500);
  clock.step_ms = 0;
  events.on_events = [&] { state.gCancelRequested = events.count == 3; };
  Scanned(all);
  EXPECT_LT(records.Count(), 300u);
  EXPECT_EQ(events.count, 3);
}

TEST_F(ScanTest, GoesOnWhateverStandsInTheTree) {
  const TempFolder tree;
  for (const char* name : {"gone", "b"}) tree.MakeFolder(name);
  tree.Write("b/in b", "");
  tree.MakeLink("b/loop", tree.path());
  ASSERT_EQ(::mkfifo((tree / "pipe").c_str(), 0600), 0);
  FileHandle level(::open(tree.path().c_str(), O_PATH));
  const std::string name(200, 'd');
  for (int i = 0; i < 40; ++i) {  // the path is longer than the system takes in one call
    ASSERT_EQ(::mkdirat(level.get(), name.c_str(), 0755), 0);
    level = FileHandle(::openat(level.get(), name.c_str(), O_PATH));
  }
  ASSERT_TRUE(FileHandle(::openat(level.get(), "deepest", O_CREAT | O_WRONLY, 0600)));

  const std::unique_ptr<FileSystem> disk = MakePosixFileSystem();
  const Services real = With(*disk, clock, locale);
  events.on_events = [&] { ::rmdir((tree / "gone").c_str()); };
  Pass pass(records, state, real, 0);
  mScanCD::Scan scan(pass, {tree / "", "", "", true}, types);
  scan.ShowDir3_FillPreview("tree", tree / "");
  EXPECT_EQ(Listed(), "b:in b b:loop " + name + ":deepest tree:pipe ");
  EXPECT_TRUE(scan.Findings().subfolder_unreadable);
}
