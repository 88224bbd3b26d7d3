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
  const struct {
    const char *old_name, *new_name, *gone, *come, *told;
  } table[] = {
      {"a.jpg", "a.jpg", "a.jpg", "a.jpg", ""},
      {"", "", "", "", ""},
      {"", "a", "", "[a]", "a added"},
      {"IMG_2043.jpg", "2043.jpg", "[IMG_]2043.jpg", "2043.jpg", "IMG_ removed"},
      {"a.jpg", "a_0001.jpg", "a.jpg", "a[_0001].jpg", "_0001 added"},
      {"a.JPG", "a.jpg", "a.[JPG]", "a.[jpg]", "JPG becomes jpg"},
      {"IMG_2043.JPG", "Lisbon_2043.jpg", "[IMG]_2043.[JPG]", "[Lisbon]_2043.[jpg]",
       "IMG becomes Lisbon"},
      {"ab12", "ab13", "ab[12]", "ab[13]", "12 becomes 13"},
      {"a-b-c", "c-b-a", "[a]-b-[c]", "[c]-b-[a]", "a becomes c"},
      {"--", "---", "--", "--[-]", "- added"},
      {"\u0416\u0438\u0437\u043D\u044C 1", "\u0416\u0438\u0437\u043D\u044C 2",
       "\u0416\u0438\u0437\u043D\u044C [1]", "\u0416\u0438\u0437\u043D\u044C [2]", "1 becomes 2"},
      {"caf\u00E9", "cafe\u0301", "[caf\u00E9]", "[cafe\u0301]", "caf\u00E9 becomes cafe\u0301"},
      {"\U0001F44D\U0001F3FD.x", "\U0001F44D.x", "[\U0001F44D\U0001F3FD].x", "[\U0001F44D].x",
       "\U0001F44D\U0001F3FD becomes \U0001F44D"},
      {"a\xFF\xFE-", "a\xFE-", "a[\xFF]\xFE-", "a\xFE-", "\xFF removed"}};
  for (const auto& row : table) {
    const ChangedPart changed = FindChangedPart(row.old_name, row.new_name);
    EXPECT_EQ(Bracketed(row.old_name, changed.gone), row.gone);
    EXPECT_EQ(Bracketed(row.new_name, changed.come), row.come);
    EXPECT_EQ(DescribeChange(row.old_name, row.new_name), row.told);
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
    const std::string both =
        Bracketed(names[0], changed.gone) + " " + Bracketed(names[1], changed.come);
    EXPECT_EQ(both.find("]["), std::string::npos) << "touching ones are one";
  }
}

TEST(ChangedPart, TakesTheWholeMiddleOfVeryLongNames) {
  std::string dots;
  for (int i = 0; i < 10'000; ++i) dots += "._"[i % 2];
  const ChangedPart changed = FindChangedPart("same" + dots + "x", "same." + dots + "y");
  EXPECT_EQ(changed.gone.size(), 1u);
  EXPECT_EQ(changed.gone[0], (TextRange{5, 10'005})) << "from behind the equal head";
  EXPECT_EQ(changed.come[0], (TextRange{5, 10'006}));
  const ChangedPart inserted = FindChangedPart(dots, dots + "x" + dots);
  EXPECT_TRUE(inserted.gone.empty()) << "equal heads and tails cost nothing";
}
