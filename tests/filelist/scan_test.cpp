#include "filelist/scan.h"

#include <gtest/gtest.h>

#include "support/fake_services.h"

namespace {

class ScanTest : public testing::Test, protected FakeServices {
 protected:
  void SetUp() override {
    files.folders = {"/in", "/in/sub", "/in/sub/deep", "/in/.svn", "/inner"};
    for (const char* path : {"/in/a.txt", "/in/README", "/in/.profile", "/in/b.JPG",
                             "/in/sub/c.txt", "/in/sub/deep/d.xyz", "/in/.svn/e.txt"}) {
      files.contents[path] = "12345";
    }
  }

  std::string Scanned(const mScanCD::ScanOptions& options, std::string_view name,
                      std::string_view path) {
    records.DeleteAll();
    state.gFileCount = 0;
    Pass pass(records, state, services, 0);
    mScanCD::Scan scan(pass, options, types);
    scan.ShowDir3_FillPreview(name, path);
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

TEST_F(ScanTest, TakesFilesByMaskAndFolder) {
  const struct {
    mScanCD::ScanOptions options;
    const char* scanned;
  } table[] = {
      {{"", "", false}, "in:.profile in:README in:a.txt in:b.JPG "},
      {{"  ", " ", true}, "deep:d.xyz sub:c.txt in:.profile in:README in:a.txt in:b.JPG "},
      {{"*.*", "", false}, "in:.profile in:a.txt in:b.JPG "},
      {{"*.txt *.jpg", "", true}, "sub:c.txt in:a.txt in:b.JPG "},
      {{"*.txt *.jpg", "B*", false}, "in:a.txt "},
      {{"nothing", "", true}, ""},
  };
  for (const auto& row : table) {
    EXPECT_EQ(Scanned(row.options, "in", "/in/"), row.scanned);
  }
  EXPECT_EQ(state.panes.paneTotal, "Total 1 files") << "an empty scan leaves the last total";
}

TEST_F(ScanTest, FillsARow) {
  Scanned({"a.txt b.jpg", "", false}, "in", "/in/");
  ASSERT_EQ(records.Count(), 2u);
  EXPECT_EQ(records.Path(records[0]), "/in/");
  EXPECT_EQ(records[0].size, 5);
  EXPECT_EQ(records[0].date.Text(), "2001.01.02 03:04:05");
  EXPECT_EQ(records.Type(records[0]), "Text file");
  EXPECT_EQ(records.Type(records[1]), "JPG File");
  EXPECT_EQ(types.GetFileType("README"), "File");
}

TEST_F(ScanTest, ReadsATypedFolderWithoutItsSeparatorAsTheBeginningOfNames) {
  EXPECT_EQ(Scanned({"", "", true}, "in", "/in"), "") << "the folders /in and /inner only";
  files.folders.insert("");
  files.contents["/info.txt"] = "";
  EXPECT_EQ(Scanned({"", "", false}, "in", "/in"), "in:info.txt ");
  EXPECT_EQ(records.Path(records[0]), "/in");
}

TEST_F(ScanTest, EndsAtOnceWhenTheUserCancels) {
  events.on_events = [&] { state.gCancelRequested = events.count == 3; };
  Scanned({"", "", false}, "in", "/in/");
  EXPECT_LT(records.Count(), 4u);
  EXPECT_EQ(events.count, 3);
}

TEST_F(ScanTest, LetsEventsRunByTimeWhereManyFilesAreTaken) {
  for (int i = 0; i < 500; ++i) files.contents["/in/f" + std::to_string(i)] = "";
  Scanned({"f*", "", false}, "in", "/in/");
  const int by_count = events.count;
  EXPECT_LT(by_count, 20);
  events.count = 0;
  clock.step_ms = 50;
  Scanned({"f*", "", false}, "in", "/in/");
  EXPECT_GT(events.count, 500);
}
