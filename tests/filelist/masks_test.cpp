#include "filelist/masks.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "support/failure_report.h"

using mCommon::LikeFilter;

namespace {

struct Row {
  const char* masks;
  const char* name;
  bool matches;
};

template <std::size_t N>
void ExpectAll(const Row (&table)[N]) {
  for (const Row& row : table) {
    EXPECT_EQ(LikeFilter(row.masks, row.name), row.matches) << row.masks << " / " << row.name;
  }
}

}  // namespace

TEST(Masks, ArePartedByBlanksAndBars) {
  ExpectAll({
      {"", "a", false},
      {"", "", false},
      {"   ", "a", false},
      {"*.jpg *.png", "a.JPG", true},
      {"*.jpg *.png", "b.png", true},
      {"*.jpg *.png", "b.gif", false},
      {"*.jpg  |  *.png", "b.png", true},
      {"*.jpg;*.png", "b.png", false},
      {"*.jpg,*.png", "b.png", false},
      {"\"my file*\" *.txt|*.doc", "my file 1", true},
      {"\"my file*\" *.txt|*.doc", "my", false},
      {"\"my file*\" *.txt|*.doc", "x.doc", true},
      {"\"a b.txt\"", "a b.txt", true},
      {"a b.txt", "a b.txt", false},
      {"a b.txt", "a", true},
      {"a b.txt", "b.txt", true},
      {":a b.txt:", "a b.txt", true},
      {"::a b.txt\"\"", "a b.txt", true},
      {"\"a|b c\"", "b c", true},
      {"\"a|b c\"", "a", true},
      {"\"a b", "a b", true},
      {"x\" \"y", "x y", true},
      {"a|\"\"|b", "", true},
      {"a||b", "", false},
  });
}

TEST(Masks, MatchTheWholeNameIgnoringCase) {
  ExpectAll({
      {"*", "", true},
      {"*", "README", true},
      {"*.*", "README", false},
      {"*.*", ".profile", true},
      {"*.*", "a.b", true},
      {"thumb*", "Thumb1.png", true},
      {"README", "readme", true},
      {"README", "readme.txt", false},
      {"?.txt", "a.txt", true},
      {"?.txt", ".txt", false},
      {"a##", "a12", true},
      {"a##", "a1x", false},
      {"#", "\u0663", false},
      {"[abc]x", "Bx", true},
      {"[abc]x", "dx", false},
      {"[A-C]x", "bx", true},
      {"[!a-c]x", "bx", false},
      {"[!a-c]x", "Dx", true},
      {"[!a]", "", false},
      {"[a-]", "-", true},
      {"[-a]", "-", true},
      {"[a!]", "!", true},
      {"[a-c0-9]", "5", true},
      {"[a-c0-9]", "-", false},
      {"[]", "", false},
      {"[[]a]", "[a]", true},
      {"[a]", "[a]", false},
      {"[*]", "*", true},
      {"[*]", "x", false},
      {"*a*b*c", "xxaxxbxxcxxc", true},
      {"*a*b*c", "xxaxxbxxcxxd", false},
      {"*[0-9]?", "a7b", true},
      {"**", "x", true},
  });
}

TEST(Masks, TakeWholeCharacters) {
  ExpectAll({
      {"?", "\u00E9", true},
      {"?", "e\u0301", true},
      {"e*", "e\u0301", false},
      {"*\u0301", "e\u0301", false},
      {"\u00C4*", "\u00E4b", true},
      {"???", "\U0001F1E9\U0001F1EA\U0001F468\u200D\U0001F469x", true},
      {"[\U0001F1E9\U0001F1EA]", "\U0001F1E9\U0001F1EA", true},
      {"[\u0430-\u044F]", "\u0416", true},
      {"a?b",
       "a\xFF"
       "b",
       true},
      {"a\xFF"
       "b",
       "A\xFF"
       "B",
       true},
      {"\xC9", "\xE9", false},
  });
}

TEST(Masks, FailOnlyWhenABadOneIsReached) {
  const MaskList masks("*.jpg [ab *.png");
  EXPECT_TRUE(masks.Matches("a.jpg"));
  const std::string report = FailureReport([&] { masks.Matches("a.png"); });
  EXPECT_THAT(report, ::testing::StartsWith("Invalid pattern string \r\n"));
  EXPECT_THAT(report, ::testing::HasSubstr("  Number: 93 = "));
  EXPECT_THAT(report, ::testing::HasSubstr("  Call Stack: mCommon.LikeFilter("
                                           "str='*.jpg [ab *.png', Filename='a.png') -"));
}

TEST(Masks, StayQuickWithManyStars) {
  std::string mask;
  for (int i = 0; i < 100; ++i) mask += "*a";
  EXPECT_FALSE(LikeFilter(mask + "*b", std::string(20'000, 'a')));
  EXPECT_TRUE(LikeFilter(mask + "*", std::string(20'000, 'a')));
}
