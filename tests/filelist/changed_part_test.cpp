#include "filelist/changed_part.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

/// `name` with brackets around its ranges, or without what stands in them.
static std::string Bracketed(std::string name, const std::vector<TextRange>& ranges,
                             bool keep = true) {
  for (auto range = ranges.rbegin(); range != ranges.rend(); ++range) {
    const std::string inside = name.substr(range->begin, range->end - range->begin);
    name.replace(range->begin, inside.size(), keep ? "[" + inside + "]" : "");
  }
  return name;
}

TEST(ChangedPart, IsFoundWordByWordAndLeavesCommonEndsUnmarked) {
  const char* const table[][5] = {
      {"a.jpg", "a.jpg", "a.jpg", "a.jpg", ""},
      {"", "a", "", "[a]", "a added"},
      {"IMG_20.jpg", "20.jpg", "[IMG_]20.jpg", "20.jpg", "IMG_ removed"},
      {"IMG_20.JPG", "Rom_20.jpg", "[IMG]_20.[JPG]", "[Rom]_20.[jpg]", "IMG becomes Rom"},
      {"ab 12", "ab 13", "ab 1[2]", "ab 1[3]", "2 becomes 3"},
      {"12", "0012", "12", "[00]12", "00 added"},
      {"holidays", "hotels", "ho[liday]s", "ho[tel]s", "liday becomes tel"},
      {"aa", "aaa", "aa", "aa[a]", "a added"},
      {"--", "---", "--", "--[-]", "- added"},
      {"b_7.txt", "b-7003.txt", "b[_]7.txt", "b[-]7[003].txt", "_ becomes -"},
      // One lone separator joins, two or a word don't.
      {"IMG_1184.JPG", "Rom_a.jpg", "[IMG_1184.JPG]", "[Rom_a.jpg]",
       "IMG_1184.JPG becomes Rom_a.jpg"},
      {"a.b", "x.", "[a.b]", "[x].", "a.b becomes x"},
      {"a_", "_b", "[a]_", "_[b]", "a removed"},
      {"a - b", "c - d", "[a] - [b]", "[c] - [d]", "a becomes c"},
      {"a👍b", "c👍d", "[a👍b]", "[c👍d]", "a👍b becomes c👍d"},
      // Arabic, Hebrew with points, Chinese and Japanese, digits of another script.
      {"صورة_12", "صور_12", "صور[ة]_12", "صور_12", "ة removed"},
      {"שָלום.1", "שלום.1", "[שָ]לום.1", "[ש]לום.1", "שָ becomes ש"},
      {"東京タワー1", "東京駅1", "東京[タワー]1", "東京[駅]1", "タワー becomes 駅"},
      {"٠١٢", "٠١٣", "٠١[٢]", "٠١[٣]", "٢ becomes ٣"},
      // Accents, skin and families are no letters of their own.
      {"café", "cafe\u0301", "caf[é]", "caf[e\u0301]", "é becomes e\u0301"},
      {"e\u0301t", "et", "[e\u0301]t", "[e]t", "e\u0301 becomes e"},
      {"\U0001F44D\U0001F3FD.x", "\U0001F44D.x", "[\U0001F44D\U0001F3FD].x", "[\U0001F44D].x",
       "\U0001F44D\U0001F3FD becomes \U0001F44D"},
      {"\U0001F468\u200D\U0001F469", "\U0001F468", "[\U0001F468\u200D\U0001F469]", "[\U0001F468]",
       "\U0001F468\u200D\U0001F469 becomes \U0001F468"},
      {"a\xFF\xFE-", "a\xFE-", "a[\xFF]\xFE-", "a\xFE-", "\xFF removed"}};
  for (const auto& [old_name, new_name, gone, come, told] : table) {
    const ChangedPart changed = FindChangedPart(old_name, new_name);
    EXPECT_EQ(Bracketed(old_name, changed.gone), gone);
    EXPECT_EQ(Bracketed(new_name, changed.come), come);
    EXPECT_EQ(DescribeChange(old_name, new_name), told);
  }
}

TEST(ChangedPart, LeavesTheSameRestOfBothNamesButForJoinedSeparators) {
  std::mt19937 random(7);
  for (int round = 0; round < 500; ++round) {
    std::string names[2], rests[2];
    for (int i = 0; i < 60; ++i) names[i % 2] += "ab1_."[random() % 5];
    const ChangedPart changed = FindChangedPart(names[0], names[1]);
    for (const int i : {0, 1}) {
      const auto& part = i == 0 ? changed.gone : changed.come;
      rests[i] = Bracketed(names[i], part, false);
      std::erase_if(rests[i], [](char c) { return c == '_' || c == '.'; });
      EXPECT_EQ(Bracketed(names[i], part).find("]["), std::string::npos) << "touching ones are one";
    }
    EXPECT_EQ(rests[0], rests[1]) << names[0] << " " << names[1];
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
