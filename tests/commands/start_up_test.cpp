#include "commands/start_up.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "support/fake_services.h"
#include "support/temp_folder.h"

using mMain::CommandLine;

TEST(StartUp, RefusesOtherSystemsAndEndsSilentlyBesideAnotherCopy) {
  FakeSystemFacts facts;
  struct : FakeSystemFacts {
    bool IsSupported() override { return false; }
  } other;
  FakePrompts prompts;
  EXPECT_TRUE(mMain::MayStart(facts, prompts, false));
  EXPECT_FALSE(mMain::MayStart(facts, prompts, true));
  EXPECT_TRUE(prompts.told.empty());
  EXPECT_FALSE(mMain::MayStart(other, prompts, false));
  EXPECT_EQ(prompts.told.size(), 1u);
}

TEST(StartUp, NotesWhatTheWorkingFolderHolds) {
  MemoryFiles files;
  for (const bool there : {false, true}) {
    EXPECT_EQ(mMain::LookForStartFiles(files).gHasManifestFile, there);
    EXPECT_FALSE(mMain::LookForStartFiles(files).gHasRuntimeFile);
    files.contents = {{"./Quorvane.exe.manifest", ""}};
  }
}

TEST(StartUp, ReadsItsCommandLine) {
  const TempFolder temp;
  std::filesystem::create_directories(temp / "a/bad\xFF");
  temp.Write("a/file", "");
  const std::string a = temp.path() + "/a/";
  // -1 is no exit code, but a window with that folder.
  const std::tuple<std::vector<std::string>, int, std::string> table[] = {
      {{}, -1, ""},
      {{a}, -1, a},
      {{a + "bad\xFF"}, -1, a + "bad\xFF/"},
      {{a + "file"}, -1, a},
      {{"--", a + "./../a//file"}, -1, a},
      {{std::filesystem::relative(a + "file")}, -1, a},
      {{a + "none"}, 2, a + "none"},
      {{a + "file/"}, 2, a + "file/"},
      {{""}, 2, ""},
      {{a, a}, 2, "Usage"},
      {{"-x"}, 2, "-x"},
      {{"--", "--help"}, 2, "--help: "},
      {{a, a, "--help"}, 0, "Usage"},
      {{"--version"}, 0, "Quorvane "}};
  const auto files = MakePosixFileSystem();
  for (const auto& [words, exit_code, folder_or_told] : table) {
    const CommandLine line = mMain::ReadCommandLine(*files, words);
    EXPECT_EQ(line.exit_code.value_or(-1), exit_code) << folder_or_told;
    EXPECT_EQ(line.folder, exit_code < 0 ? folder_or_told : "");
    EXPECT_TRUE(exit_code < 0 || line.told.find(folder_or_told) != line.told.npos) << line.told;
  }
}
