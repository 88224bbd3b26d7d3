#include "commands/start_up.h"

#include <gtest/gtest.h>

#include "support/fake_services.h"

TEST(StartUp, RefusesOtherSystemsAndEndsSilentlyBesideAnotherCopy) {
  struct : FakeSystemFacts {
    bool IsSupported() override { return false; }
  } other;
  FakeSystemFacts facts;
  FakePrompts prompts;
  EXPECT_TRUE(mMain::MayStart(facts, prompts, false));
  EXPECT_FALSE(mMain::MayStart(facts, prompts, true));
  EXPECT_TRUE(prompts.told.empty());
  EXPECT_FALSE(mMain::MayStart(other, prompts, false));
  EXPECT_EQ(prompts.told.size(), 1u);
}

TEST(StartUp, NotesWhatTheWorkingFolderHolds) {
  MemoryFiles files;
  EXPECT_FALSE(mMain::LookForStartFiles(files).gHasManifestFile);
  files.contents = {{"./Quorvane.exe.manifest", ""}};
  EXPECT_TRUE(mMain::LookForStartFiles(files).gHasManifestFile);
  EXPECT_FALSE(mMain::LookForStartFiles(files).gHasRuntimeFile);
}
