#include "rename/numbering.h"

#include <gtest/gtest.h>

#include <random>

#include "support/memory_files.h"

namespace {

/// What trying every number from 1 gives.
std::string PlainSearch(MemoryFiles& files, const RunState& state, const std::string& folder,
                        const std::string& base, const std::string& extension) {
  std::string name = base + extension;
  for (int n = 1; files.Exists(folder + name); ++n) {
    name = base + state.gNumberLeft + std::to_string(n) + state.gNumberRight + extension;
  }
  return name;
}

}  // namespace

TEST(Numbering, NumbersATakenNameByTheTemplate) {
  MemoryFiles files;
  for (const char* name : {"report.txt", "report_{1}.txt", "report_{1}_{1}.txt", "plain", "a.b.c",
                           "trail.", "gap.txt", "gap_{2}.txt"}) {
    files.contents[std::string("/d/") + name] = "";
  }
  const struct {
    const char* name;
    const char* corrected;
  } table[] = {
      {"free.txt", "untouched"},
      {"report.txt", "report_{2}.txt"},
      {"report_{1}.txt", "report_{1}_{2}.txt"},
      {"plain", "plain_{1}"},
      {"a.b.c", "a.b_{1}.c"},
      {"trail.", "trail_{1}"},
      {"gap.txt", "gap_{1}.txt"},
  };
  RunState state;
  Numbering numbering(state, files);
  for (const auto& row : table) {
    std::string corrected = "untouched";
    numbering.CreateUniqueName("/d/", row.name, corrected);
    EXPECT_EQ(corrected, row.corrected) << row.name;
  }
}

TEST(Numbering, GivesWhatThePlainSearchGivesWhileFilesComeAndGo) {
  const struct {
    const char* left;
    const char* right;
    const char* base;
  } templates[] = {{"_{", "}", "x"}, {"", "", "x1"}, {"1", "2", "3"}, {" ", ".", "x"}};
  std::mt19937 random(7);
  for (const auto& row : templates) {
    RunState state;
    state.gNumberLeft = row.left;
    state.gNumberRight = row.right;
    MemoryFiles files;
    Numbering numbering(state, files);
    const std::string base = row.base;
    files.contents["/d/" + base + ".a"] = "";
    for (int step = 0; step < 400; ++step) {
      const std::string expected = PlainSearch(files, state, "/d/", base, ".a");
      ASSERT_EQ(numbering.FreeName("/d/", base + ".a"), expected) << step;
      if (random() % 3 != 0) {
        files.contents["/d/" + expected] = "";
      } else {
        auto victim = files.contents.begin();
        std::advance(victim, random() % files.contents.size());
        const std::string path = victim->first;
        files.contents.erase(victim);
        numbering.Freed(path);
        files.contents["/d/" + base + ".a"] = "";
      }
    }
  }
}

TEST(Numbering, TestsFewNamesWhereManyFilesWantOne) {
  RunState state;
  MemoryFiles files;
  files.contents["/d/x"] = "";
  Numbering numbering(state, files);
  for (int i = 0; i < 1000; ++i) files.contents["/d/" + numbering.FreeName("/d/", "x")] = "";
  EXPECT_TRUE(files.contents.contains("/d/x_{1000}"));
  EXPECT_LT(files.exists_calls, 4000);
}
