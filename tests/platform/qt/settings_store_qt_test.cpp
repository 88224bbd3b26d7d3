#include "platform/qt/settings_store_qt.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>

#include <functional>
#include <optional>

#include "support/temp_folder.h"

namespace {

constexpr char kFile[] = "Quorvane/Quorvane.conf";

QString FileIn(const TempFolder& folder) {
  return QString::fromStdString(folder / kFile);
}

/// Each test has a config folder of its own.
class SettingsStoreQt : public testing::Test {
 protected:
  const TempFolder folder;
};

/// What stands in the file of `folder`. QSettings keeps in memory what this process has read and
/// written of a file, so it is read from a copy in another place.
class OnDisk {
 public:
  explicit OnDisk(const TempFolder& folder) {
    copy_.MakeFolder("Quorvane");
    copy_.Write(kFile, folder.Read(kFile).value_or(""));
    store_.emplace(FileIn(copy_));
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
  QtSettingsStore store(FileIn(folder));
  for (const std::string& text : kHardTexts) {
    store.SaveSetting("Texts", text, text);
    store.SaveSetting("Sections\\" + text, "Key", text);
  }
  ASSERT_EQ(store.Flush().text, "");
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
  QtSettingsStore store(FileIn(folder));
  for (const auto& [section, key] : names) store.SaveSetting(section, key, section + "|" + key);
  ASSERT_EQ(store.Flush().text, "");
  OnDisk on_disk(folder);
  for (const auto& [section, key] : names) EXPECT_EQ(on_disk(section, key), section + "|" + key);
}

TEST_F(SettingsStoreQt, AKeyAndASectionOfOneNameLiveSideBySide) {
  QtSettingsStore store(FileIn(folder));
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
  ASSERT_EQ(store.Flush().text, "");
  OnDisk on_disk(folder);
  EXPECT_EQ(on_disk("Templates", "1"), "Report");
  EXPECT_EQ(on_disk("Templates\\1", "Start"), "(none)");
  EXPECT_EQ(on_disk("Templates\\1\\Deep", "Start"), "(none)");
  EXPECT_EQ(on_disk("Templates\\10", "Start"), "7");
  EXPECT_TRUE(store.DeleteSetting("Templates"));
  EXPECT_EQ(store.GetSetting("Templates", "1", "(none)"), "(none)");
}

TEST_F(SettingsStoreQt, TwoWritersKeepEachOthersKeys) {
  QtSettingsStore store(FileIn(folder));
  store.SaveSetting("Shared", "Mine", "before");
  ASSERT_EQ(store.Flush().text, "");
  constexpr int kWrites = 25;
  const auto write = [&](const std::string& who) {
    QtSettingsStore own(FileIn(folder));
    for (int i = 0; i < kWrites; ++i) {
      own.SaveSetting("Shared", who + std::to_string(i), who);
      if (own.Flush()) ::_exit(1);
    }
  };
  const pid_t other = InProcess([&] { write("Other"); });
  write("Mine");
  int status = -1;
  ::waitpid(other, &status, 0);
  ASSERT_EQ(status, 0);
  ASSERT_EQ(store.Flush().text, "");
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
    QtSettingsStore store(FileIn(folder));
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

  QtSettingsStore store(FileIn(folder));
  EXPECT_EQ(store.ReadProblem().text, "");
  const std::string text = store.GetSetting("Texts", "Long");
  ASSERT_EQ(text.size(), 10000U);
  EXPECT_EQ(text, std::string(10000, text[0]));
  store.SaveSetting("Texts", "Next", "1");
  EXPECT_EQ(store.Flush().text, "");
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
      {good + "x=" + std::string(9 << 20, ',') + "\n", "(none)", true},
      {std::string("\x89PNG\r\n\x1A\n\xFF\xFE=\n", 12), "(none)", true},
  };
  for (const auto& row : table) {
    const TempFolder config;
    config.MakeFolder("Quorvane");
    config.Write(kFile, row.content);
    QtSettingsStore store(FileIn(config));
    EXPECT_TRUE(store.CanBeRead());
    EXPECT_EQ(static_cast<bool>(store.ReadProblem()), row.damaged) << row.content.substr(0, 99);
    EXPECT_EQ(store.GetSetting("Settings", "CheckForSystemFolders", "(none)"), row.read);
    EXPECT_TRUE(config.Read(kFile) == row.content) << "reading changes nothing";

    store.SaveSetting("Conflicts", "NumberLeft", "(");
    EXPECT_EQ(store.Flush().text, "");
    EXPECT_EQ(store.ReadProblem().text, "");
    EXPECT_EQ(store.GetSetting("Settings", "CheckForSystemFolders", "(none)"), row.read);
    EXPECT_EQ(store.GetSetting("Conflicts", "NumberLeft"), "(");
    const std::string copy = std::string(kFile) + ".damaged";
    EXPECT_TRUE(config.Read(copy) == (row.damaged ? std::optional(row.content) : std::nullopt));
  }
}

TEST_F(SettingsStoreQt, ASecondDamageKeepsTheFirstCopy) {
  QtSettingsStore store(FileIn(folder));
  for (const std::string content : {"first", "second"}) {
    store.SaveSetting("A", "B", content);
    ASSERT_EQ(store.Flush().text, "");
    folder.Write(kFile, content);
  }
  store.SaveSetting("A", "B", "third");
  ASSERT_EQ(store.Flush().text, "");
  EXPECT_EQ(folder.Read(std::string(kFile) + ".damaged"), "first");
  EXPECT_EQ(folder.Read(std::string(kFile) + ".damaged2"), "second");
}

/// What can stand in the place of the file: at `path`, below the folder of the test.
struct Place {
  std::string path;
  std::function<void(const TempFolder&, const std::string& path)> make;
  int read_error;  ///< what ReadProblem tells; 0: nothing is wrong at the start
  int error;       ///< what the first Flush tells behind it; 0: nothing new
};

const Place kPlaces[] = {
    {"fifo", [](auto& in, auto& path) { ::mkfifo((in / path).c_str(), 0600); }, ENXIO, 0},
    {"folder", [](auto& in, auto& path) { in.MakeFolder(path); }, EISDIR, 0},
    {"fifo_far", [](auto& in, auto& path) { in.MakeLink(path, "fifo"); }, ENXIO, 0},
    {"loop", [](auto& in, auto& path) { in.MakeLink(path, "loop"); }, ELOOP, 0},
    {"nowhere", [](auto& in, auto& path) { in.MakeLink(path, "none/file"); }, ENOENT, 0},
    {"file/below", [](auto& in, auto&) { in.Write("file", ""); }, ENOTDIR, 0},
    {"locked", [](auto& in, auto& path) { in.MakeFolder(path + ".lock"); }, 0, EEXIST},
};

TEST_F(SettingsStoreQt, WhatIsNoFileIsToldOnceAndItsChangesAreKeptUntilItIsGone) {
  for (const Place& place : kPlaces) {
    place.make(folder, place.path);
    const std::string path = folder / place.path;
    const mode_t kind = folder.Facts(place.path).st_mode;
    QtSettingsStore store(QString::fromStdString(path));
    EXPECT_EQ(store.CanBeRead(), place.read_error == 0) << path;
    const StoreProblem read = store.ReadProblem();
    EXPECT_EQ(read.error, place.read_error) << path;
    EXPECT_EQ(read.text.find(path) != read.text.npos, place.read_error != 0) << read.text;
    for (const int error : {place.error, 0}) {
      store.SaveSetting("A", "B", "new");
      EXPECT_EQ(store.Flush().error, error) << path;
      EXPECT_EQ(store.GetSetting("A", "B"), "new");
      EXPECT_EQ(folder.Facts(place.path).st_mode, kind) << path;
    }
    EXPECT_TRUE(store.DeleteSetting("A"));
    EXPECT_FALSE(store.DeleteSetting("A", "B"));
  }
}

TEST_F(SettingsStoreQt, EachCauseIsToldOnceWhateverComesBetween) {
  folder.MakeFolder("Quorvane");
  QtSettingsStore store(FileIn(folder));
  const struct {
    std::function<void()> make;
    int error;
  } steps[] = {
      {[&] { folder.MakeFolder(kFile); }, EISDIR},
      {[] {}, 0},
      {[&] { ::rmdir((folder / kFile).c_str()), ::mkfifo((folder / kFile).c_str(), 0600); }, ENXIO},
      {[&] { ::unlink((folder / kFile).c_str()), folder.MakeFolder(kFile); }, 0},
      {[&] { ::rmdir((folder / kFile).c_str()); }, 0},
      {[&] { ::unlink((folder / kFile).c_str()), ::mkfifo((folder / kFile).c_str(), 0600); }, 0},
  };
  for (const auto& step : steps) {
    step.make();
    const std::string key = std::to_string(&step - steps);
    store.SaveSetting("A", key, key);
    EXPECT_EQ(store.Flush().error, step.error) << key;
    if (&step - steps != 4) continue;
    OnDisk on_disk(folder);
    for (const char* kept : {"0", "1", "2", "3", "4"}) EXPECT_EQ(on_disk("A", kept), kept);
  }
}

TEST_F(SettingsStoreQt, ALinkToAFileStaysALink) {
  folder.MakeFolder("Quorvane");
  for (const char* content : {"", "[A]\nB=old\n"}) {
    folder.Write("far", content);
    if (*content == 0) ::unlink((folder / "far").c_str());
    ::unlink((folder / kFile).c_str());
    folder.MakeLink(kFile, folder / "far");
    QtSettingsStore store(FileIn(folder));
    EXPECT_EQ(store.ReadProblem().text, "");
    store.SaveSetting("A", "B", "new");
    EXPECT_EQ(store.Flush().text, "");
    EXPECT_TRUE(S_ISLNK(folder.Facts(kFile).st_mode)) << content;
    EXPECT_EQ(folder.Read("far"), "[A]\nB=new\n");
  }
}

/// Runs in a process of its own, since it gives up the superuser's rights and its room for files.
TEST_F(SettingsStoreQt, AFailedWriteTellsTheErrnoOfWhatFailed) {
  folder.MakeFolder("Quorvane");
  ASSERT_EQ(::chmod(folder.path().c_str(), 0755), 0);
  ASSERT_EQ(::chmod((folder / "Quorvane").c_str(), 0555), 0);
  int status = -1;
  ::waitpid(InProcess([&] {
              if (::geteuid() == 0 && ::setuid(65534) != 0) ::_exit(1);
              QtSettingsStore store(FileIn(folder));
              store.SaveSetting("A", "B", "new");
              const int error = store.Flush().error;
              ::_exit(error == EACCES && store.GetSetting("A", "B") == "new" ? 0 : 2);
            }),
            &status, 0);
  EXPECT_EQ(status, 0);
  EXPECT_TRUE(folder.List("Quorvane").empty());
}

}  // namespace
