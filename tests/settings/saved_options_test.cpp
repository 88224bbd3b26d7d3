#include "settings/saved_options.h"

#include <gmock/gmock.h>

#include <set>

#include "settings/option_table.h"
#include "settings/reg_settings.h"
#include "support/failure_report.h"
#include "support/memory_settings.h"

using option_table::kRows;
using Texts = std::vector<std::string>;

/// Every option but the save boxes unlike the one of a first start.
static Options Unusual() {
  const struct {
    void operator()(bool* held) const { *held = !*held; }
    void operator()(int* held) const { *held = 2; }
    void operator()(std::int16_t* held) const { *held = 0; }
    void operator()(std::string* held) const { *held += "\xFF"; }
  } change;
  Options options;
  for (const OptionRow& row : kRows) std::visit(change, row.in(options));
  options.save = {};
  return options;
}

static Texts TextsOf(const Options& options) {
  Texts texts;
  for (const OptionRow& row : kRows) texts.push_back(option_table::TextOf(row, options));
  return texts;
}

TEST(SavedOptions, AreWrittenInTheOrderOfTheReadingWithTheConflictsLeftToTheirDialog) {
  MemorySettings store;
  Options options = Unusual();
  std::size_t read = 0;
  ReadSavedOptions(store, options, read);
  EXPECT_EQ(TextsOf(options), TextsOf(Options())) << "an empty store";
  EXPECT_EQ(std::set(store.read.begin(), store.read.end()).size(), std::size(kRows));
  WriteSavedOptions(store, options);
  store.written.push_back("then");
  WriteConflictOptions(store, options.numbering);
  EXPECT_EQ(store.written,
            (Texts{"SaveSourceFolderOptions=1", "SaveOutputFolderOptions=1",
                   "SaveFileListOptions=1", "SourceFolderPath=", "SourceFolderSubfolders=1",
                   "IncludeMask=", "ExcludeMask=", "OutputFolderMode=0",
                   "OutputFolderPath=", "OutputFolderSubfolders=1", "ColumnPath=0", "ColumnSize=0",
                   "ColumnType=0", "ColumnDate=0", "GroupBy=1", "then", "AddNumber=1",
                   "NumberLeft=_{", "NumberRight=}"}));
}

TEST(SavedOptions, AGroupWhoseBoxIsOffIsNeitherWrittenNorReadAndPartlyReset) {
  MemorySettings store;
  Options options = Unusual();
  options.save = {false, false, false};
  WriteSavedOptions(store, options);
  EXPECT_EQ(store.written, (Texts{"SaveSourceFolderOptions=0", "SaveOutputFolderOptions=0",
                                  "SaveFileListOptions=0"}));
  std::size_t read = 0;
  ReadSavedOptions(store, options, read);
  EXPECT_EQ(store.read, (Texts{"SaveSourceFolderOptions", "SaveOutputFolderOptions",
                               "SaveFileListOptions", "AddNumber", "NumberLeft", "NumberRight"}));
  Options expected = Unusual();
  expected.save = options.save;
  expected.source.chSubfolders = expected.output.chDestinationSubfolders = true;
  expected.output.cmbDestination = kUseSourceFolder;
  expected.list.cmbGroupBy = 1;
  expected.numbering = {};
  EXPECT_EQ(TextsOf(options), TextsOf(expected));
}

TEST(SavedOptions, ABadValueEndsTheReadingAndAloneOfTheUnreadIsMended) {
  const std::string mismatch = "Type mismatch", invalid = "Invalid property";
  const struct {
    std::string section, key, text, failure, mended = "1";
  } table[] = {
      {"Settings\\Save", "SaveFileListOptions", "yes", mismatch},
      {"Settings\\Folders", "SourceFolderPath", std::string(65537, '/'), invalid, ""},
      {"Settings\\Folders", "SourceFolderSubfolders", "2", invalid},
      {"Settings\\Folders", "OutputFolderMode", std::to_string(kLastOutputMode + 1), invalid, "0"},
      {"Settings\\FileList", "GroupBy", " 1", mismatch},
      {"Conflicts", "AddNumber", std::string("1\0", 2), mismatch},
      {"Settings\\FileList", "GroupBy", "3", invalid},
      {"Conflicts", "AddNumber", "32768", "Overflow"}};
  for (const auto& row : table) {
    MemorySettings store;
    WriteSavedOptions(store, Unusual());
    store.values[{row.section, row.key}] = row.text;
    store.written.clear();
    OptionsAtStart start;
    const auto read = [&] { ReadSavedOptions(store, start.shown, start.read); };
    EXPECT_THAT(FailureReport(read), testing::StartsWith(row.failure)) << row.key;
    EXPECT_EQ(store.read.back(), row.key);
    ASSERT_EQ(kRows[start.read].key, row.key);

    // Written: what was read, the bad value, and of the rest what was changed since.
    Options options = start.shown;
    options.source.fdIncludeMask = "*.raw";
    WriteSavedOptions(store, options, start);
    Texts expected;
    for (const OptionRow& one : kRows) {
      const bool shown = one.section != option_table::kConflicts && &one < kRows + start.read;
      if (!shown && one.key != row.key && one.key != "IncludeMask") continue;
      expected.push_back(std::string(one.key) + "=" + option_table::TextOf(one, options));
    }
    EXPECT_EQ(store.written, expected) << row.key;
    EXPECT_EQ((store.values[{row.section, row.key}]), row.mended);
  }
}

TEST(SavedOptions, AGroupTurnedOnAfterAStartThatReadNothingIsWritten) {
  MemorySettings store;
  OptionsAtStart start{.could_read = false, .shown = {}};
  start.shown.save.chSaveFileListOptions = false;
  WriteSavedOptions(store, Options(), start);
  EXPECT_EQ(store.written, (Texts{"SaveFileListOptions=1", "ColumnPath=0", "ColumnSize=0",
                                  "ColumnType=0", "ColumnDate=0", "GroupBy=1"}));
}

TEST(RegSettings, TheVersionIsOnDiskWhenItIsSaved) {
  MemorySettings store;
  const auto save = [&] { mRegSettings::SaveVersion(store, {1, 20, 3}, "/usr/bin"); };
  EXPECT_EQ(FailureReport(save), "");
  EXPECT_THAT(store.written,
              testing::ElementsAre("Major=1", "Minor=20", "Revision=3", "AppPath=/usr/bin"));
  EXPECT_EQ(store.flushes, 1);
  store.written.clear();
  mRegSettings::SaveVersion(store, {1, 20, 3}, "/opt");
  EXPECT_EQ(store.written, Texts{"AppPath=/opt"}) << "the rest stands there already";
  store.problem = {"can't be written: /conf", ENOSPC};
  const auto check = [&] { mRegSettings::CheckReadable(store); };
  for (const std::string& report : {FailureReport(save), FailureReport(check)}) {
    EXPECT_THAT(report, testing::ContainsRegex("/conf(.|\n)*\\(28\\) No space left on device"));
  }
}
