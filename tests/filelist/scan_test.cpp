#include "filelist/scan.h"

#include <gtest/gtest.h>

#include "support/fake_services.h"

namespace {

class ScanTest : public testing::Test, protected FakeServices {
 protected:
  ScanTest() {
    files.folders = {"/in", "/in/sub", "/in/sub/deep", "/in/.svn", "/inner"};
    for (const char* name :
         {"a.txt", "README", ".profile", "b.JPG", "sub/c.txt", "sub/deep/d.xyz", ".svn/e.txt"}) {
      files.contents[std::string("/in/") + name] = "12345";
    }
  }

  std::string Scanned(const SourceOptions& source) {
    records.DeleteAll();
    state.gFileCount = 0;
    Pass pass(records, state, services, 0);
    mScanCD::Scan scan(pass, source, types);
    scan.ShowDir3_FillPreview("in", source.fdSourceFolder);
    std::string scanned;
    for (std::size_t i = 0; i < records.Count(); ++i) {
      scanned += records.ParentName(records[i]) + ":" + records[i].sourceFileName + " ";
    }
    return scanned;
  }

  Records records;
  RunState state;
  FileTypes types{type_names};
};

}  // namespace

TEST_F(ScanTest, TakesFilesByMaskAndFolderAndFillsTheirRows) {
  const std::pair<SourceOptions, const char*> table[] = {
      {{"/in/", "", "", false}, "in:.profile in:README in:a.txt in:b.JPG "},
      {{"/in/", "  ", " ", true}, "deep:d.xyz sub:c.txt in:.profile in:README in:a.txt in:b.JPG "},
      {{"/in/", "*.txt *.jpg", "", true}, "sub:c.txt in:a.txt in:b.JPG "},
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
