#include "commands/start_up.h"

#include <gtest/gtest.h>

#include "support/fake_services.h"
#include "support/memory_files.h"

namespace {

class OtherSystem : public FakeSystemFacts {
 public:
  bool IsSupported() override { return false; }
};

}  // namespace

TEST(StartUp, RefusesOtherSystemsAndEndsSilentlyBesideAnotherCopy) {
  FakePrompts prompts;
  FakeSystemFacts facts;
  EXPECT_TRUE(mMain::MayStart(facts, prompts, false));
  EXPECT_FALSE(mMain::MayStart(facts, prompts, true));
  EXPECT_TRUE(prompts.told.empty());
  OtherSystem other;
  EXPECT_FALSE(mMain::MayStart(other, prompts, false));
  EXPECT_EQ(prompts.told,
            std::vector<std::string>{"Quorvane supports only Windows 2000/XP/2003/Vista"});
}

TEST(StartUp, NotesWhatTheWorkingFolderHolds) {
  MemoryFiles files;
  EXPECT_FALSE(mMain::LookForStartFiles(files).gHasManifestFile);
  files.contents = {{"./Quorvane.exe.manifest", ""}};
  EXPECT_TRUE(mMain::LookForStartFiles(files).gHasManifestFile);
  EXPECT_FALSE(mMain::LookForStartFiles(files).gHasRuntimeFile);
}
