#include "platform/settings_store_qt.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>

#include <functional>
#include <optional>

#include "support/temp_folder.h"

namespace {

constexpr char kFile[] = "Quorvane/Quorvane.conf";

void UseConfigFolder(const std::string& path) {
  QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, QString::fromStdString(path));
}

/// Each test has a config folder of its own.
class SettingsStoreQt : public testing::Test {
 protected:
  SettingsStoreQt() { UseConfigFolder(folder.path()); }

  const TempFolder folder;
};

/// What stands in the file of `folder`. QSettings keeps in memory what this process has read and
/// written of a file, so it is read from a copy in another place.
class OnDisk {
 public:
  explicit OnDisk(const TempFolder& folder) {
    copy_.MakeFolder("Quorvane");
    copy_.Write(kFile, folder.Read(kFile).value_or(""));
    UseConfigFolder(copy_.path());
    store_.emplace();
    UseConfigFolder(folder.path());
  }
  std::string operator()(std::string_view section, std::string_view key) {
    return store_->GetSetting(section, key, "(none)");
  }

 private:
  const TempFolder copy_;
  std::optional<QtSettingsStore> store_;
};

/// Runs `body` in a second process; answers its id.
pid_t InProcess(const std::function<void()>& body) {
  const pid_t process = ::fork();
  if (process == 0) {
    body();
    ::_exit(0);
  }
  return process;
}

const std::string kHardTexts[] = {
    "plain",
    "",
    " ",
    "  both ends\t",
    "\"quoted\"",
    "a\"b",
    "a|b\\c\\",
    "\\n",
    "100%",
    "%41%",
    "a;b,c=d",
    "@Invalid()",
    "@",
    "[section]",
    "line\nbreak\r\n",
    std::string("nul\0nul", 7),
    "\x01\x1F\x7F",
    "gr\xC3\xBC\xC3\x9F \xE6\x97\xA5\xE6\x9C\xAC",
    "\xF0\x9F\x8F\xB3\xEF\xB8\x8F\xE2\x80\x8D\xF0\x9F\x8C\x88",
    "/photos/\xFF\xC3/\xED\xB2\x80/",
    "\xEF\xBB\xBFmark",
    "\xEF\xBF\xBE\xEF\xBF\xBD",
    "\xE2\x80\xA8\xC2\x85",
    std::string(10000, 'x') + "\xC3\xA4",
};

TEST_F(SettingsStoreQt, TextsOfEveryKindComeBackFromDiskUnchanged) {
  QtSettingsStore store;
  for (const std::string& text : kHardTexts) {
    store.SaveSetting("Texts", text, text);
    store.SaveSetting("Sections\\" + text, "Key", text);
  }
  ASSERT_EQ(store.Flush(), "");
  OnDisk on_disk(folder);
  for (const std::string& text : kHardTexts) {
    EXPECT_EQ(on_disk("Texts", text), text);
    EXPECT_EQ(on_disk("Sections\\" + text, "Key"), text);
  }
}

TEST_F(SettingsStoreQt, SectionsAndKeysAreTheirNamesAndNothingElse) {
  const std::pair<std::string, std::string> names[] = {
      {"A\\B", "C"}, {"A", "B\\C"},       {"A.B", "C"},   {"A/B", "C"},     {"A-B", "C"},
      {"A", "B/C"},  {"A", "b"},          {"A", "B"},     {"a", "B"},       {"A\\", "B"},
      {"", "A"},     {"A", ""},           {"\\A", "B"},   {"General", "A"}, {"general", "A"},
      {"-", "A"},    {"A\\General", "A"}, {"A%2FB", "C"}, {"A-2DB", "C"},
  };
  QtSettingsStore store;
  for (const auto& [section, key] : names) store.SaveSetting(section, key, section + "|" + key);
  ASSERT_EQ(store.Flush(), "");
  OnDisk on_disk(folder);
  for (const auto& [section, key] : names) EXPECT_EQ(on_disk(section, key), section + "|" + key);
}

TEST_F(SettingsStoreQt, AKeyAndASectionOfOneNameLiveSideBySide) {
  QtSettingsStore store;
  const auto fill = [&] {
    store.SaveSetting("Templates", "1", "Report");
    store.SaveSetting("Templates\\1", "Start", "5");
    store.SaveSetting("Templates\\1\\Deep", "Start", "6");
    store.SaveSetting("Templates\\10", "Start", "7");
  };
  fill();
  EXPECT_TRUE(store.DeleteSetting("Templates", "1"));
  EXPECT_FALSE(store.DeleteSetting("Templates", "1"));
  EXPECT_EQ(store.GetSetting("Templates\\1", "Start"), "5");
  fill();
  EXPECT_TRUE(store.DeleteSetting("Templates\\1"));
  EXPECT_FALSE(store.DeleteSetting("Templates\\1"));
  ASSERT_EQ(store.Flush(), "");
  OnDisk on_disk(folder);
  EXPECT_EQ(on_disk("Templates", "1"), "Report");
  EXPECT_EQ(on_disk("Templates\\1", "Start"), "(none)");
  EXPECT_EQ(on_disk("Templates\\1\\Deep", "Start"), "(none)");
  EXPECT_EQ(on_disk("Templates\\10", "Start"), "7");
  EXPECT_TRUE(store.DeleteSetting("Templates"));
  EXPECT_EQ(store.GetSetting("Templates", "1", "(none)"), "(none)");
}

TEST_F(SettingsStoreQt, TwoWritersKeepEachOthersKeys) {
  QtSettingsStore store;
  store.SaveSetting("Shared", "Mine", "before");
  ASSERT_EQ(store.Flush(), "");
  constexpr int kWrites = 25;
  const auto write = [&](const std::string& who) {
    QtSettingsStore own;
    for (int i = 0; i < kWrites; ++i) {
      own.SaveSetting("Shared", who + std::to_string(i), who);
      if (!own.Flush().empty()) ::_exit(1);
    }
  };
  const pid_t other = InProcess([&] { write("Other"); });
  write("Mine");
  int status = -1;
  ::waitpid(other, &status, 0);
  ASSERT_EQ(status, 0);
  ASSERT_EQ(store.Flush(), "");
  OnDisk on_disk(folder);
  for (int i = 0; i < kWrites; ++i) {
    EXPECT_EQ(on_disk("Shared", "Mine" + std::to_string(i)), "Mine") << i;
    EXPECT_EQ(on_disk("Shared", "Other" + std::to_string(i)), "Other") << i;
  }
}

TEST_F(SettingsStoreQt, AWriterKilledAtWorkLeavesAWholeFileAndNoLock) {
  int ends[2];
  ASSERT_EQ(::pipe(ends), 0);
  const pid_t writer = InProcess([&] {
    QtSettingsStore store;
    for (int i = 0;; ++i) {
      store.SaveSetting("Texts", "Long", std::string(10000, static_cast<char>('a' + i % 26)));
      (void)store.Flush();
      if (i == 3) (void)!::write(ends[1], "x", 1);
    }
  });
  char sign;
  ASSERT_EQ(::read(ends[0], &sign, 1), 1);
  ::usleep(20000);
  ::kill(writer, SIGKILL);
  ::waitpid(writer, nullptr, 0);
  ::close(ends[0]);
  ::close(ends[1]);

  QtSettingsStore store;
  EXPECT_EQ(store.ReadProblem(), "");
  const std::string text = store.GetSetting("Texts", "Long");
  ASSERT_EQ(text.size(), 10000U);
  EXPECT_EQ(text, std::string(10000, text[0]));
  store.SaveSetting("Texts", "Next", "1");
  EXPECT_EQ(store.Flush(), "");
}

TEST_F(SettingsStoreQt, ADamagedFileGivesWhatCanBeReadAndIsCopiedBeforeItIsWritten) {
  const std::string good = "[Settings]\nCheckForSystemFolders=0\n";
  const struct {
    std::string content, read;
    bool damaged;
  } table[] = {
      {good, "0", false},
      {"; somebody's note\n\n" + good, "0", false},
      {"", "(none)", false},
      {good + "Sourc", "0", true},
      {good + "SourceFolderPath=/ho", "0", true},
      {good + "[Conflic\n", "0", true},
      {std::string(300, '\0'), "(none)", true},
      {std::string("\x89PNG\r\n\x1A\n\xFF\xFE=\n", 12), "(none)", true},
  };
  for (const auto& row : table) {
    const TempFolder config;
    UseConfigFolder(config.path());
    config.MakeFolder("Quorvane");
    config.Write(kFile, row.content);
    QtSettingsStore store;
    EXPECT_EQ(store.ReadProblem().empty(), !row.damaged) << row.content;
    EXPECT_EQ(store.GetSetting("Settings", "CheckForSystemFolders", "(none)"), row.read);
    EXPECT_EQ(config.Read(kFile), row.content) << "reading changes nothing";

    store.SaveSetting("Conflicts", "NumberLeft", "(");
    EXPECT_EQ(store.Flush(), "");
    EXPECT_EQ(store.ReadProblem(), "");
    EXPECT_EQ(store.GetSetting("Settings", "CheckForSystemFolders", "(none)"), row.read);
    EXPECT_EQ(store.GetSetting("Conflicts", "NumberLeft"), "(");
    const std::string copy = std::string(kFile) + ".damaged";
    EXPECT_EQ(config.Read(copy), row.damaged ? std::optional(row.content) : std::nullopt);
  }
}

TEST_F(SettingsStoreQt, ASecondDamageKeepsTheFirstCopy) {
  QtSettingsStore store;
  for (const std::string content : {"first", "second"}) {
    store.SaveSetting("A", "B", content);
    ASSERT_EQ(store.Flush(), "");
    folder.Write(kFile, content);
  }
  store.SaveSetting("A", "B", "third");
  ASSERT_EQ(store.Flush(), "");
  EXPECT_EQ(folder.Read(std::string(kFile) + ".damaged"), "first");
  EXPECT_EQ(folder.Read(std::string(kFile) + ".damaged2"), "second");
}

TEST_F(SettingsStoreQt, WhereNothingCanBeWrittenTheProgramGoesOnAndFlushTells) {
  const TempFolder blocked;
  blocked.Write("file", "");
  blocked.MakeFolder("taken");
  blocked.MakeFolder("taken/Quorvane");
  blocked.MakeFolder(std::string("taken/") + kFile);
  for (const char* config : {"file", "file/below", "taken"}) {
    UseConfigFolder(blocked / config);
    QtSettingsStore store;
    EXPECT_EQ(store.GetSetting("A", "B", "default"), "default");
    store.SaveSetting("A", "B", "new");
    EXPECT_NE(store.Flush().find("can't be written"), std::string::npos) << config;
    EXPECT_EQ(store.GetSetting("A", "B"), "new");
  }
  UseConfigFolder(blocked / "taken");
  EXPECT_NE(QtSettingsStore().ReadProblem(), "");
}

TEST_F(SettingsStoreQt, AWriteAfterAFailedOneSucceedsOnceTheCauseIsGone) {
  folder.MakeFolder("Quorvane");
  folder.MakeFolder(kFile);
  QtSettingsStore store;
  store.SaveSetting("A", "B", "first");
  ASSERT_NE(store.Flush(), "");
  std::filesystem::remove(folder / kFile);
  store.SaveSetting("A", "C", "second");
  EXPECT_EQ(store.Flush(), "");
  OnDisk on_disk(folder);
  EXPECT_EQ(on_disk("A", "B"), "first");
  EXPECT_EQ(on_disk("A", "C"), "second");
}

}  // namespace
