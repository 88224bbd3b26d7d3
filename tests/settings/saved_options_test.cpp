#include "settings/saved_options.h"

#include <gmock/gmock.h>

#include "support/failure_report.h"
#include "support/memory_settings.h"

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

/// Every option unlike the one of a first start.
SavedOptions Unusual() {
  SavedOptions options;
  options.fdSourceFolder = "/photos/\xFF/";
  options.chSubfolders = false;
  options.fdIncludeMask = "*.jpg;*.png";
  options.fdExcludeMask = " ";
  options.cmbDestination = 2;
  options.fdDestination = "/out/";
  options.chDestinationSubfolders = false;
  options.chColumnPath = options.chColumnSize = true;
  options.chColumnType = options.chColumnDate = true;
  options.cmbGroupBy = 2;
  options.gConflictAddNumber = 0;
  options.gNumberLeft = "(";
  options.gNumberRight = "";
  return options;
}

void ExpectSame(const SavedOptions& a, const SavedOptions& b) {
  MemorySettings left, right;
  for (auto [store, options] : {std::pair{&left, &a}, std::pair{&right, &b}}) {
    WriteSavedOptions(*store, *options);
    WriteConflictOptions(*store, *options);
  }
  EXPECT_EQ(left.written, right.written);
}

TEST(SavedOptions, WhatIsWrittenIsReadAgain) {
  MemorySettings store;
  WriteSavedOptions(store, Unusual());
  WriteConflictOptions(store, Unusual());
  SavedOptions read;
  ReadSavedOptions(store, read);
  ExpectSame(read, Unusual());
}

TEST(SavedOptions, AnEmptyStoreIsAFirstStart) {
  MemorySettings store;
  SavedOptions read = Unusual();
  ReadSavedOptions(store, read);
  ExpectSame(read, SavedOptions());
}

TEST(SavedOptions, WritesInTheOrderOfTheReadingAndLeavesConflictsToTheirDialog) {
  MemorySettings store;
  WriteSavedOptions(store, SavedOptions());
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

  SavedOptions off;
  off.chSaveSourceFolderOptions = off.chSaveOutputFolderOptions = off.chSaveFileListOptions = false;
  WriteSavedOptions(store, off);
  EXPECT_EQ(store.values.size(), before.size());
  EXPECT_EQ((store.values[{"Settings\\Folders", "SourceFolderPath"}]), "/photos/\xFF/");
  EXPECT_EQ((store.values[{"Settings\\FileList", "GroupBy"}]), "2");

  // The controls keep what they hold, but for the three that fall back.
  store.read.clear();
  SavedOptions read = Unusual();
  ReadSavedOptions(store, read);
  EXPECT_THAT(store.read,
              ElementsAre("SaveSourceFolderOptions", "SaveOutputFolderOptions",
                          "SaveFileListOptions", "AddNumber", "NumberLeft", "NumberRight"));
  EXPECT_EQ(read.fdSourceFolder, "/photos/\xFF/");
  EXPECT_TRUE(read.chSubfolders);
  EXPECT_EQ(read.cmbDestination, 0);
  EXPECT_EQ(read.fdDestination, "/out/");
  EXPECT_TRUE(read.chDestinationSubfolders);
  EXPECT_TRUE(read.chColumnDate);
  EXPECT_EQ(read.cmbGroupBy, 1);
}

TEST(SavedOptions, ABadValueEndsTheReadingWhereItStands) {
  const struct {
    std::string section, key, text, failure, next;
  } table[] = {
      {"Settings\\Save", "SaveFileListOptions", "yes", "Type mismatch", "SourceFolderPath"},
      {"Settings\\Folders", "SourceFolderSubfolders", "2", "Invalid property", "IncludeMask"},
      {"Settings\\Folders", "OutputFolderMode", "3", "Invalid property", "OutputFolderPath"},
      {"Settings\\FileList", "GroupBy", "-1", "Invalid property", "AddNumber"},
      {"Conflicts", "AddNumber", "32768", "Overflow", "NumberLeft"},
  };
  for (const auto& row : table) {
    MemorySettings store;
    WriteSavedOptions(store, Unusual());
    store.values[{row.section, row.key}] = row.text;
    SavedOptions read;
    EXPECT_THAT(FailureReport([&] { ReadSavedOptions(store, read); }), HasSubstr(row.failure));
    EXPECT_EQ(store.read.back(), row.key);
    EXPECT_THAT(store.read, Not(Contains(row.next)));
  }
}

TEST(SavedOptions, WhatWasReadBeforeABadValueStands) {
  MemorySettings store;
  WriteSavedOptions(store, Unusual());
  store.values[{"Settings\\Folders", "OutputFolderMode"}] = "";
  SavedOptions read;
  EXPECT_NE(FailureReport([&] { ReadSavedOptions(store, read); }), "");
  EXPECT_EQ(read.fdIncludeMask, "*.jpg;*.png");
  EXPECT_EQ(read.cmbDestination, 0);
  EXPECT_EQ(read.fdDestination, "");
  EXPECT_EQ(read.cmbGroupBy, 1);
}

}  // namespace
