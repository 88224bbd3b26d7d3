#include "filelist/changed_part.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace {

/// `name` with brackets around its ranges, or without what stands in them.
std::string Bracketed(std::string name, const std::vector<TextRange>& ranges, bool keep = true) {
  for (auto range = ranges.rbegin(); range != ranges.rend(); ++range) {
    const std::string inside = name.substr(range->begin, range->end - range->begin);
    name.replace(range->begin, inside.size(), keep ? "[" + inside + "]" : "");
  }
  return name;
}

}  // namespace

TEST(ChangedPart, IsFoundWordByWord) {
  const char* const table[][5] = {
      {"a.jpg", "a.jpg", "a.jpg", "a.jpg", ""},
      {"", "a", "", "[a]", "a added"},
      {"IMG_20.jpg", "20.jpg", "[IMG_]20.jpg", "20.jpg", "IMG_ removed"},
      {"a.jpg", "a_01.jpg", "a.jpg", "a[_01].jpg", "_01 added"},
      {"IMG_20.JPG", "Rom_20.jpg", "[IMG]_20.[JPG]", "[Rom]_20.[jpg]", "IMG becomes Rom"},
      {"ab12", "ab13", "ab[12]", "ab[13]", "12 becomes 13"},
      {"a-b-c", "c-b-a", "[a]-b-[c]", "[c]-b-[a]", "a becomes c"},
      {"--", "---", "--", "--[-]", "- added"},
      {"\u0416\u0438 1", "\u0416\u0438 2", "\u0416\u0438 [1]", "\u0416\u0438 [2]", "1 becomes 2"},
      {"caf\u00E9", "cafe\u0301", "[caf\u00E9]", "[cafe\u0301]", "caf\u00E9 becomes cafe\u0301"},
      {"\U0001F44D\U0001F3FD.x", "\U0001F44D.x", "[\U0001F44D\U0001F3FD].x", "[\U0001F44D].x",
       "\U0001F44D\U0001F3FD becomes \U0001F44D"},
      {"a\xFF\xFE-", "a\xFE-", "a[\xFF]\xFE-", "a\xFE-", "\xFF removed"}};
  for (const auto& [old_name, new_name, gone, come, told] : table) {
    const ChangedPart changed = FindChangedPart(old_name, new_name);
    EXPECT_EQ(Bracketed(old_name, changed.gone), gone);
    EXPECT_EQ(Bracketed(new_name, changed.come), come);
    EXPECT_EQ(DescribeChange(old_name, new_name), told);
  }
}

TEST(ChangedPart, LeavesTheSameRestOfBothNames) {
  std::mt19937 random(7);
  for (int round = 0; round < 500; ++round) {
    std::string names[2];
    for (std::string& name : names) {
      for (int i = 0; i < 30; ++i) name += "ab1_."[random() % 5];
    }
    const ChangedPart changed = FindChangedPart(names[0], names[1]);
    EXPECT_EQ(Bracketed(names[0], changed.gone, false), Bracketed(names[1], changed.come, false));
    for (const auto& [name, part] : {std::pair(names[0], changed.gone), {names[1], changed.come}}) {
      EXPECT_EQ(Bracketed(name, part).find("]["), std::string::npos) << "touching ones are one";
    }
  }
}

TEST(ChangedPart, TakesTheWholeMiddleOfVeryLongNames) {
  std::string dots;
  for (int i = 0; i < 10'000; ++i) dots += "._"[i % 2];
  const ChangedPart changed = FindChangedPart("same" + dots + "x", "same." + dots + "y");
  EXPECT_EQ(changed.gone, (std::vector<TextRange>{{5, 10'005}})) << "from behind the equal head";
  EXPECT_EQ(changed.come, (std::vector<TextRange>{{5, 10'006}}));
  EXPECT_TRUE(FindChangedPart(dots, dots + "x" + dots).gone.empty()) << "equal ends cost nothing";
}
