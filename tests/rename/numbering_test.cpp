#include "rename/numbering.h"

#include <gtest/gtest.h>

#include "support/fake_services.h"

namespace {

/// A pass that numbers names in the folder /d/, in which "x" is taken.
class NumberingTest : public testing::Test, protected FakeServices {
 protected:
  void SetUp() override { Take("x"); }

  void Take(const std::string& name) { files.contents["/d/" + name] = ""; }
  static std::string Numbered(int n) { return "x_{" + std::to_string(n) + "}"; }
  std::string FreeName() { return numbering.FreeName("/d/", "x"); }

  Records records;
  RunState state;
  Pass pass{records, state, services, 0};
  Numbering numbering{pass};
};

}  // namespace

TEST_F(NumberingTest, TestsFewNamesWhereManyFilesWantOneAndAreNumberedAnew) {
  for (int n = 1; n <= 1000; ++n) Take(FreeName());
  EXPECT_TRUE(files.contents.contains("/d/x_{1000}"));
  EXPECT_LT(files.exists_calls, 4000);
  files.exists_calls = 0;
  for (int n = 1; n <= 1000; ++n) {
    const std::string name = "/d/" + Numbered(n * 7 % 1000 + 1);  // in no order
    Take(FreeName());
    files.contents.erase(name);
    numbering.Freed(name);
  }
  EXPECT_EQ(files.contents.size(), 1001u);
  EXPECT_LT(files.exists_calls, 5000);
}

TEST_F(NumberingTest, GivesUpWhenTheUserCancels) {
  for (int n = 1; n <= 100; ++n) Take(Numbered(n));
  clock.step_ms = 50;
  events.on_events = [&] { state.gCancelRequested = events.count == 10; };
  std::string corrected = "untouched";
  numbering.CreateUniqueName("/d/", "x", corrected);
  EXPECT_EQ(corrected, "untouched");
  EXPECT_LT(files.exists_calls, 20);
}

TEST_F(NumberingTest, OpensAFreedNumberBehindADigit) {
  state.numbering = {1, "", ""};
  for (const char* name : {"x1", "x11"}) Take(name);
  EXPECT_EQ(numbering.FreeName("/d/", "x1"), "x12");
  files.contents.erase("/d/x11");
  numbering.Freed("/d/x11");
  EXPECT_EQ(numbering.FreeName("/d/", "x1"), "x11");
}
