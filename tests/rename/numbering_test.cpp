#include "rename/numbering.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "support/fake_services.h"

namespace {

/// A pass that numbers names in the folder /d/, in which "x" is taken.
class NumberingTest : public testing::Test, protected FakeServices {
 protected:
  void SetUp() override { Take("x"); }

  void Take(const std::string& name) { files.contents["/d/" + name] = ""; }
  std::string FreeName() { return numbering.FreeName("/d/", "x"); }

  Records records;
  RunState state;
  Pass pass{records, state, services, 0};
  Numbering numbering{pass};
};

}  // namespace

TEST_F(NumberingTest, TestsFewNamesWhereManyFilesWantOne) {
  for (int i = 0; i < 1000; ++i) Take(FreeName());
  EXPECT_TRUE(files.contents.contains("/d/x_{1000}"));
  EXPECT_LT(files.exists_calls, 4000);
}

TEST_F(NumberingTest, TestsFewNamesWhereNumberedFilesAreNumberedAnew) {
  std::vector<std::string> names;
  for (int n = 1; n <= 1000; ++n) names.push_back("x_{" + std::to_string(n) + "}");
  for (const std::string& name : names) Take(name);
  std::shuffle(names.begin(), names.end(), std::mt19937(7));
  for (const std::string& name : names) {
    Take(FreeName());
    files.contents.erase("/d/" + name);
    numbering.Freed("/d/" + name);
  }
  EXPECT_EQ(files.contents.size(), 1001u);
  EXPECT_LT(files.exists_calls, 6000);
}

TEST_F(NumberingTest, GivesUpWhenTheUserCancels) {
  for (int n = 1; n <= 100; ++n) Take("x_{" + std::to_string(n) + "}");
  clock.step_ms = 50;
  events.on_events = [&] { state.gCancelRequested = events.count == 10; };
  std::string corrected = "untouched";
  numbering.CreateUniqueName("/d/", "x", corrected);
  EXPECT_EQ(corrected, "untouched");
  EXPECT_LT(files.exists_calls, 20);
}
