#include "settings/saved_options.h"

#include <gmock/gmock.h>

#include "support/failure_report.h"
#include "support/memory_settings.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

/// Every option unlike the one of a first start.
Options Unusual() {
  Options options;
  options.source.fdSourceFolder = "/photos/\xFF/";
  options.source.chSubfolders = false;
  options.source.fdIncludeMask = "*.jpg;*.png";
  options.source.fdExcludeMask = " ";
  options.output.cmbDestination = 2;
  options.output.fdDestination = "/out/";
  options.output.chDestinationSubfolders = false;
  options.list.chColumnPath = options.list.chColumnSize = true;
  options.list.chColumnType = options.list.chColumnDate = true;
  options.list.cmbGroupBy = 2;
  options.numbering.gConflictAddNumber = 0;
  options.numbering.gNumberLeft = "(";
  options.numbering.gNumberRight = "";
  return options;
}

/// How many options were dealt with.
std::size_t Read(SettingsStore& store, Options& options) {
  std::size_t read = 0;
  ReadSavedOptions(store, options, read);
  return read;
}

void ExpectSame(const Options& a, const Options& b) {
  MemorySettings left, right;
  for (auto [store, options] : {std::pair{&left, &a}, std::pair{&right, &b}}) {
    WriteSavedOptions(*store, *options);
    WriteConflictOptions(*store, options->numbering);
  }
  EXPECT_EQ(left.written, right.written);
}

TEST(SavedOptions, AnEmptyStoreIsAFirstStart) {
  MemorySettings store;
  Options read = Unusual();
  Read(store, read);
  ExpectSame(read, Options());
}

TEST(SavedOptions, WritesInTheOrderOfTheReadingAndLeavesConflictsToTheirDialog) {
  MemorySettings store;
  WriteSavedOptions(store, Options());
  EXPECT_THAT(store.written,
              ElementsAre("SaveSourceFolderOptions=1", "SaveOutputFolderOptions=1",
                          "SaveFileListOptions=1", "SourceFolderPath=", "SourceFolderSubfolders=1",
                          "IncludeMask=", "ExcludeMask=", "OutputFolderMode=0",
                          "OutputFolderPath=", "OutputFolderSubfolders=1", "ColumnPath=0",
                          "ColumnSize=0", "ColumnType=0", "ColumnDate=0", "GroupBy=1"));
}

TEST(SavedOptions, AGroupWhoseBoxIsOffIsNeitherWrittenNorRead) {
  MemorySettings store;
  WriteSavedOptions(store, Unusual());
  const auto before = store.values;

  Options off;
  off.save.chSaveSourceFolderOptions = off.save.chSaveOutputFolderOptions =
      off.save.chSaveFileListOptions = false;
  WriteSavedOptions(store, off);
  EXPECT_EQ(store.values.size(), before.size());
  EXPECT_EQ((store.values[{"Settings\\Folders", "SourceFolderPath"}]), "/photos/\xFF/");
  EXPECT_EQ((store.values[{"Settings\\FileList", "GroupBy"}]), "2");

  // The controls keep what they hold, but for the three that fall back.
  store.read.clear();
  Options read = Unusual();
  Read(store, read);
  EXPECT_THAT(store.read,
              ElementsAre("SaveSourceFolderOptions", "SaveOutputFolderOptions",
                          "SaveFileListOptions", "AddNumber", "NumberLeft", "NumberRight"));
  EXPECT_EQ(read.source.fdSourceFolder, "/photos/\xFF/");
  EXPECT_TRUE(read.source.chSubfolders);
  EXPECT_EQ(read.output.cmbDestination, 0);
  EXPECT_EQ(read.output.fdDestination, "/out/");
  EXPECT_TRUE(read.output.chDestinationSubfolders);
  EXPECT_TRUE(read.list.chColumnDate);
  EXPECT_EQ(read.list.cmbGroupBy, 1);
}

TEST(SavedOptions, ABadValueEndsTheReadingAndAloneOfTheUnreadIsMended) {
  MemorySettings good;
  Options any;
  Read(good, any);
  const std::vector<std::string>& order = good.read;
  constexpr std::size_t kConflicts = 15;  // from here on their own dialog writes
  const struct {
    std::string section, key, text, failure, mended;
  } table[] = {
      {"Settings\\Save", "SaveFileListOptions", "yes", "Type mismatch", "1"},
      {"Settings\\Folders", "SourceFolderPath", std::string(65537, '/'), "Invalid property", ""},
      {"Settings\\Folders", "SourceFolderSubfolders", "2", "Invalid property", "1"},
      {"Settings\\Folders", "OutputFolderMode", "3", "Invalid property", "0"},
      {"Settings\\FileList", "GroupBy", "-1", "Invalid property", "1"},
      {"Conflicts", "AddNumber", "32768", "Overflow", "1"},
  };
  for (const auto& row : table) {
    MemorySettings store;
    WriteSavedOptions(store, Unusual());
    store.values[{row.section, row.key}] = row.text;
    store.written.clear();
    Options options;
    OptionsAtStart start;
    const auto read = [&] { ReadSavedOptions(store, options, start.read); };
    EXPECT_THAT(FailureReport(read), HasSubstr(row.failure));
    EXPECT_EQ(store.read.back(), row.key);
    EXPECT_EQ(order[start.read], row.key);

    start.shown = options;
    options.source.fdIncludeMask = "*.raw";
    WriteSavedOptions(store, options, start);
    std::vector<std::string> written, expected;
    for (const std::string& one : store.written) written.push_back(one.substr(0, one.find('=')));
    for (std::size_t i = 0; i < order.size(); ++i) {
      const bool shown = i < start.read || order[i] == "IncludeMask";
      if (i == start.read || (i < kConflicts && shown)) expected.push_back(order[i]);
    }
    EXPECT_EQ(written, expected) << row.key;
    EXPECT_EQ((store.values[{row.section, row.key}]), row.mended);
  }
}

TEST(SavedOptions, AGroupTurnedOnBehindABadValueIsWritten) {
  MemorySettings store;
  OptionsAtStart start{.read = 0, .shown = {}};
  start.shown.save.chSaveFileListOptions = false;
  WriteSavedOptions(store, Options(), start);
  EXPECT_THAT(store.written,
              ElementsAre("SaveSourceFolderOptions=1", "SaveFileListOptions=1", "ColumnPath=0",
                          "ColumnSize=0", "ColumnType=0", "ColumnDate=0", "GroupBy=1"));
}

}  // namespace
