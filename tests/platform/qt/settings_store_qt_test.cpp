#include "platform/qt/settings_store_qt.h"

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <filesystem>
#include <functional>

#include "support/temp_folder.h"

namespace {

constexpr char kFile[] = "Quorvane/Quorvane.conf";

QString FileIn(const TempFolder& folder) {
  return QString::fromStdString(folder / kFile);
}

struct SettingsStoreQt : testing::Test {
  SettingsStoreQt() { folder.MakeFolder("Quorvane"); }

  const TempFolder folder;
};

/// What stands in the file of `folder`. QSettings keeps in memory what this process has read and
/// written of a file, so it is read from a copy in another place.
struct OnDisk {
  explicit OnDisk(const TempFolder& folder)
      : store((copy.MakeFolder("Quorvane"), copy.Write(kFile, folder.Read(kFile).value_or("")),
               FileIn(copy))) {}
  std::string operator()(std::string_view section, std::string_view key) {
    return store.GetSetting(section, key, "(none)");
  }

  const TempFolder copy;
  QtSettingsStore store;
};

/// Writes one key; what Flush tells.
int Save(QtSettingsStore& store, const std::string& key, const std::string& text) {
  store.SaveSetting("A", key, text);
  return store.Flush().error;
}

/// Runs `body` in a second process, with `meanwhile` in this one; what `body` answers.
int InProcess(const std::function<int()>& body, const std::function<void()>& meanwhile = {}) {
  const pid_t process = ::fork();
  if (process == 0) ::_exit(body());
  if (meanwhile) meanwhile();
  int status = -1;
  return ::waitpid(process, &status, 0) == process ? status : -1;
}

TEST_F(SettingsStoreQt, TextsSectionsAndKeysComeBackFromDiskAsTheyWere) {
  std::vector<std::string> texts = {
      "",
      "  ",
      "@Invalid()",
      "%41",
      "\\x41",
      "line\r\n",
      "\xEF\xBB\xBF \u00DF \u65E5 \xED\xB2\x80/\xFF\xC3/\xEF\xBF\xBE\u2028",
      "\U0001F3F3\uFE0F\u200D\U0001F308" + std::string(10000, 'x')};
  for (int byte = 0; byte < 256; ++byte) {
    const std::string one(1, static_cast<char>(byte));
    texts.insert(texts.end(), {one, "a" + one + "b"});
  }
  std::vector<std::pair<std::string, std::string>> names;
  for (const char* section : {"", "-", "A", "a", "A\\", "\\A", "A\\B", "A.B", "A/B", "A-B", "A%2FB",
                              "A-2DB", "General", "general", "A\\General"}) {
    for (const char* key : {"", "A", "b", "B", "B/C", "B\\C"}) names.emplace_back(section, key);
  }
  for (const std::string& text : texts) {
    names.emplace_back("Keys", text);
    names.emplace_back("Sections\\" + text, "Key");
  }
  std::filesystem::remove(folder / "Quorvane");  // it is made
  QtSettingsStore store(FileIn(folder));
  for (const auto& [section, key] : names) store.SaveSetting(section, key, section + "|" + key);
  for (const std::string& text : texts) store.SaveSetting("Texts", "of" + text, text);
  ASSERT_EQ(store.Flush().text, "");
  OnDisk on_disk(folder);
  for (const auto& [section, key] : names) EXPECT_EQ(on_disk(section, key), section + "|" + key);
  for (const std::string& text : texts) EXPECT_EQ(on_disk("Texts", "of" + text), text);
}

TEST_F(SettingsStoreQt, AKeyAndASectionOfOneNameLiveSideBySide) {
  QtSettingsStore store(FileIn(folder));
  for (const char* section : {"T", "T\\1", "T\\1\\Deep", "T\\10"}) {
    store.SaveSetting(section, "1", "x");
  }
  for (const bool there : {true, false}) EXPECT_EQ(store.DeleteSetting("T", "1"), there);
  EXPECT_EQ(store.GetSetting("T\\1", "1"), "x");
  store.SaveSetting("T", "1", "x");
  for (const bool there : {true, false}) EXPECT_EQ(store.DeleteSetting("T\\1"), there);
  ASSERT_EQ(store.Flush().text, "");
  OnDisk on_disk(folder);
  for (const char* left : {"T", "T\\10"}) EXPECT_EQ(on_disk(left, "1"), "x") << left;
  for (const char* gone : {"T\\1", "T\\1\\Deep"}) EXPECT_EQ(on_disk(gone, "1"), "(none)") << gone;
  EXPECT_TRUE(store.DeleteSetting("T"));
  EXPECT_EQ(store.GetSetting("T", "1", "(none)"), "(none)");
}

TEST_F(SettingsStoreQt, TwoWritersKeepEachOthersKeysAlsoBehindALink) {
  folder.MakeLink(kFile, folder / "far");
  const auto write = [&](char who) {
    QtSettingsStore own(FileIn(folder));
    int error = own.ReadProblem().error;
    for (int i = 0; i < 15; ++i) error |= Save(own, who + std::to_string(i), std::string(1, who));
    return error;
  };
  EXPECT_EQ(write('-'), 0);
  ASSERT_EQ(InProcess([&] { return write('o'); }, [&] { EXPECT_EQ(write('m'), 0); }), 0);
  EXPECT_TRUE(S_ISLNK(folder.Facts(kFile).st_mode));
  OnDisk on_disk(folder);
  for (int i = 0; i < 45; ++i) {
    const std::string who(1, "-mo"[i / 15]);
    EXPECT_EQ(on_disk("A", who + std::to_string(i % 15)), who) << i;
  }
}

TEST_F(SettingsStoreQt, ADamagedFileGivesWhatCanBeReadAndIsCopiedBeforeItIsWritten) {
  const std::string good = "[Settings]\nCheckForSystemFolders=0\n";
  const struct {
    std::string content, read;
    bool damaged;
  } table[] = {{"; somebody's note\n\n" + good, "0", false},
               {"", "(none)", false},
               {good + "SourceFolderPath=/ho", "0", true},
               {good + "[Conflic\n", "0", true},
               {std::string(300, '\0'), "(none)", true},
               {good + "x=" + std::string(9 << 20, ',') + "\n", "(none)", true},
               {std::string("\x89PNG\r\n\x1A\n\xFF\xFE=\n", 12), "(none)", true}};
  const std::string copy = std::string(kFile) + ".damaged";
  for (const auto& row : table) {
    const TempFolder config;
    config.MakeFolder("Quorvane");
    config.Write(kFile, row.content);
    QtSettingsStore store(FileIn(config));
    EXPECT_TRUE(store.CanBeRead());
    EXPECT_EQ(static_cast<bool>(store.ReadProblem()), row.damaged) << row.content.substr(0, 99);
    EXPECT_TRUE(config.Read(kFile) == row.content) << "reading changes nothing";
    for (const std::string text : {"first", "second"}) {
      EXPECT_EQ(store.GetSetting("Settings", "CheckForSystemFolders", "(none)"), row.read);
      EXPECT_EQ(Save(store, "B", text), 0);
      EXPECT_EQ(store.ReadProblem().text, "");
      EXPECT_EQ(store.GetSetting("A", "B"), text);
    }
    EXPECT_TRUE(config.Read(copy) == (row.damaged ? std::optional(row.content) : std::nullopt));
    config.Write(kFile, "again");
    EXPECT_EQ(Save(store, "B", "third"), 0);
    EXPECT_TRUE(config.Read(copy) == (row.damaged ? row.content : "again"));
    EXPECT_EQ(config.Read(copy + "2").value_or(""), row.damaged ? "again" : "");
  }
}

TEST_F(SettingsStoreQt, WhatIsNoFileIsToldOnceAndItsChangesAreKeptUntilItIsGone) {
  ASSERT_EQ(::mkfifo((folder / "fifo").c_str(), 0600), 0);
  const std::pair<const char*, const char*> links[] = {
      {"far", "fifo"}, {"loop", "loop"}, {"nowhere", "none/file"}};
  for (const auto& [link, leads_to] : links) folder.MakeLink(link, leads_to);
  folder.Write("file", "");
  folder.MakeFolder("locked.lock");
  const struct {
    const char* name;
    int read_error;  ///< what ReadProblem tells; 0: nothing is wrong at the start
    int error = 0;   ///< what the first Flush tells behind it; 0: nothing new
  } table[] = {{"fifo", ENXIO},     {"Quorvane", EISDIR},    {"far", ENXIO},       {"loop", ELOOP},
               {"nowhere", ENOENT}, {"file/below", ENOTDIR}, {"locked", 0, EEXIST}};
  for (const auto& row : table) {
    const std::string path = folder / row.name;
    SCOPED_TRACE(path);
    const mode_t kind = folder.Facts(row.name).st_mode;
    QtSettingsStore store(QString::fromStdString(path));
    EXPECT_EQ(store.CanBeRead(), row.read_error == 0);
    const StoreProblem read = store.ReadProblem();
    EXPECT_EQ(read.error, row.read_error);
    EXPECT_EQ(read.text.find(path) != read.text.npos, row.read_error != 0) << read.text;
    for (const int error : {row.error, 0}) {
      EXPECT_EQ(Save(store, "B", "new"), error);
      EXPECT_EQ(store.GetSetting("A", "B"), "new");
      EXPECT_EQ(folder.Facts(row.name).st_mode, kind);
    }
    EXPECT_TRUE(store.DeleteSetting("A"));
    EXPECT_FALSE(store.DeleteSetting("A", "B"));
  }
}

/// Runs in a process of its own, since it gives up the superuser's rights.
TEST_F(SettingsStoreQt, AFailedWriteTellsTheErrnoOfWhatFailed) {
  ASSERT_EQ(::chmod(folder.path().c_str(), 0755), 0);
  ASSERT_EQ(::chmod((folder / "Quorvane").c_str(), 0555), 0);
  const int end = InProcess([&] {
    if (::geteuid() == 0 && ::setuid(65534) != 0) return 1;
    QtSettingsStore store(FileIn(folder));
    return Save(store, "B", "new") == EACCES && store.GetSetting("A", "B") == "new" ? 0 : 2;
  });
  EXPECT_EQ(end, 0);
  EXPECT_TRUE(folder.List("Quorvane").empty());
}

}  // namespace
