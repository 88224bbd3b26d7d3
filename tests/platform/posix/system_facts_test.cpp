#include "platform/system_facts.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include "support/temp_folder.h"

TEST(SystemFacts, TellOfThisMachineAndProgram) {
  const std::unique_ptr<SystemFacts> facts = MakeSystemFacts();
  const std::string program = facts->ProgramPath();
  EXPECT_TRUE(program.ends_with("/quorvane_logic_tests")) << program;
  EXPECT_EQ(facts->ProgramSize(), std::filesystem::file_size(program));
  EXPECT_FALSE(facts->ComputerName().empty());
  const SystemName system = facts->System();
  EXPECT_FALSE(system.name.empty());
  EXPECT_EQ(system.name.find('"'), std::string::npos) << system.name;
  EXPECT_FALSE(system.build.empty());
}

TEST(SystemFacts, TellOfAVolumeThatIsThere) {
  const std::unique_ptr<SystemFacts> facts = MakeSystemFacts();
  const TempFolder folder;
  EXPECT_GT(facts->FreeBytes(folder.path()).value_or(0), 0u);
  EXPECT_EQ(facts->FreeBytes(folder / "gone"), std::nullopt);
  EXPECT_EQ(facts->VolumeSerial(folder / "gone"), std::nullopt);
  EXPECT_EQ(facts->FileSystemName(folder / "gone"), std::nullopt);
  EXPECT_EQ(facts->FileSystemName("/proc"), "proc");
}
