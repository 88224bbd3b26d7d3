#include "rename/numbering.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "support/memory_files.h"

namespace {

/// What trying every number from 1 gives.
std::string PlainSearch(MemoryFiles& files, const RunState& state, const std::string& folder,
                        const std::string& base, const std::string& extension) {
  std::string name = base + extension;
  for (int n = 1; files.Exists(folder + name); ++n) {
    name = base + state.numbering.gNumberLeft + std::to_string(n) + state.numbering.gNumberRight +
           extension;
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
  Numbering numbering(state, files, [] { return true; });
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
    state.numbering.gNumberLeft = row.left;
    state.numbering.gNumberRight = row.right;
    MemoryFiles files;
    Numbering numbering(state, files, [] { return true; });
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
  Numbering numbering(state, files, [] { return true; });
  for (int i = 0; i < 1000; ++i) files.contents["/d/" + numbering.FreeName("/d/", "x")] = "";
  EXPECT_TRUE(files.contents.contains("/d/x_{1000}"));
  EXPECT_LT(files.exists_calls, 4000);
}

TEST(Numbering, TestsFewNamesWhereNumberedFilesAreNumberedAnew) {
  RunState state;
  MemoryFiles files;
  files.contents["/d/x"] = "";
  std::vector<std::string> paths;
  for (int n = 1; n <= 1000; ++n) paths.push_back("/d/x_{" + std::to_string(n) + "}");
  for (const std::string& path : paths) files.contents[path] = "";
  std::shuffle(paths.begin(), paths.end(), std::mt19937(7));
  Numbering numbering(state, files, [] { return true; });
  for (const std::string& path : paths) {
    const std::string free = numbering.FreeName("/d/", "x");
    files.contents["/d/" + free] = files.contents[path];
    files.contents.erase(path);
    numbering.Freed(path);
  }
  EXPECT_EQ(files.contents.size(), 1001u);
  EXPECT_LT(files.exists_calls, 6000);
}

TEST(Numbering, GivesUpWhenTheUserCancels) {
  RunState state;
  MemoryFiles files;
  files.contents["/d/x"] = "";
  for (int n = 1; n <= 100; ++n) files.contents["/d/x_{" + std::to_string(n) + "}"] = "";
  int asked = 0;
  Numbering numbering(state, files, [&] { return ++asked < 10; });
  std::string corrected = "untouched";
  numbering.CreateUniqueName("/d/", "x", corrected);
  EXPECT_EQ(corrected, "untouched");
  EXPECT_LT(files.exists_calls, 20);
}
