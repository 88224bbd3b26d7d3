#include "filelist/masks.h"

#include <gmock/gmock.h>

#include "support/failure_report.h"

using mCommon::LikeFilter;

TEST(Masks, MatchOneOfTheirListIgnoringCase) {
  using Names = std::vector<const char*>;
  const std::tuple<const char*, Names, Names> table[] = {
      {"   ", {}, {"a", ""}},
      {"*.jpg  |  *.png", {"a.JPG", "b.png"}, {"b.gif", ""}},
      {"*.jpg;*.png", {}, {"b.png"}},
      {"\"my file*\" *.txt|*.doc", {"my file 1", "x.doc"}, {"my"}},
      {"\"a b.txt\"", {"a b.txt"}, {"a", "b.txt"}},
      {"::a b.txt\"\"", {"a b.txt"}, {}},
      {"\"a|b c\"", {"a", "b c"}, {}},
      {"\"a b", {"a b"}, {}},
      {"x\" \"y", {"x y"}, {}},
      {"a|\"\"|b", {""}, {}},
      {"a||b", {}, {""}},
      {"**", {"", "x"}, {}},
      {"[]", {}, {"", "[]"}},
      {"*.*", {".profile", "a.b"}, {"README"}},
      {"*a*b*c", {"xxaxxbxxcxxc"}, {"xxaxxbxxcxxd"}},
      {"a##", {"a12", "A09"}, {"a1x", "a1/", "a1:", "a\u06631"}},
      // Whole characters, and bytes that are none.
      {"?", {"\u00E9", "e\u0301"}, {""}},
      {"*\u0301", {}, {"e\u0301"}},
      {"???", {"\U0001F1E9\U0001F1EA\U0001F468\u200D\U0001F469x"}, {}},
      {"[\U0001F1E9\U0001F1EA]", {"\U0001F1E9\U0001F1EA"}, {}},
      {"\xE0?\xFF", {"\xE0-\xFF"}, {}},
      {"[\x80-\xFE]Z", {"\xE9z"}, {"\xFFz"}}};
  for (const auto& [masks, fit, rest] : table) {
    for (const char* name : fit) EXPECT_TRUE(LikeFilter(masks, name)) << masks << name;
    for (const char* name : rest) EXPECT_FALSE(LikeFilter(masks, name)) << masks << name;
  }
}

TEST(Masks, TakeOneCharacterOfAListARangeOrAKind) {
  const std::pair<std::string, std::string> table[] = {
      {"[abc]", "abcABC"}, {"[B-D]", "bcdBCD"}, {"[!a-d0-9]", "!*-["}, {"[a-]", "aA-"},
      {"[-a]", "aA-"},     {"[a!]", "aA!"},     {"[ab0-9]", "abAB05"}, {"[[]", "["},
      {"[*]", "*"},        {"#", "05"}};
  for (const auto& [mask, taken] : table) {
    for (const char c : std::string("abcdABCD!*-05[")) {
      const bool takes = taken.find(c) != taken.npos;
      EXPECT_EQ(LikeFilter(mask, {&c, 1}), takes) << mask << " / " << c;
      EXPECT_EQ(LikeFilter('*' + mask + "?x", std::string("yyY") + c + "zX"), takes) << mask << c;
    }
    EXPECT_FALSE(LikeFilter(mask, "")) << mask;
  }
}

TEST(Masks, TakeALetterWithItsAccentInEitherForm) {
  const struct {
    const char *masks[2], *names[2];
    bool matches;
  } table[] = {
      {{"\u00C9*", "E\u0301*"}, {"\u00E9t", "e\u0301t"}, true},
      {{"e*", "E?"}, {"\u00E9t", "e\u0301t"}, false},
      {{"[a-z]", "[!z-\x7F]"}, {"\u00C9", "E\u0301"}, true},
      {{"[!a-z]", "[a-e]"}, {"\u00E9", "e\u0301"}, false},
      {{"[a-z]", "[A-Z]"}, {"\u017A", "z\u0301"}, false},
      {{"[x\u00E9]", "[xe\u0301]"}, {"\u00C9", "E\u0301"}, true},
      {{"[!x\u00E9]", "[!xe\u0301]"}, {"\u00C9", "E\u0301"}, false},
      {{"[\u00E8-\u00EB]", "[e\u0300-e\u0308]"}, {"\u00C9", "E\u0301"}, true},
      {{"[\u00E8-\u00EB]", "[e\u0300-e\u0308]"}, {"\u00F3", "o\u0301"}, false},
      {{"[\u0430-\u044F]", "[\u0410-\u042F]"}, {"\u0451", "\u0415\u0308"}, true},
      {{"\u1E69", "s\u0307\u0323"}, {"s\u0323\u0307", "\u1E61\u0323"}, true},
      {{"\uAC01", "\u1100\u1161\u11A8"}, {"\uAC00\u11A8", "\uAC01"}, true},
      {{"\u212B?k", "\u00E5?\u212A"}, {"A\u030A-k", "\u00C5\xC3\u212A"}, true},
  };
  for (const auto& [masks, names, matches] : table) {
    for (const char* mask : masks) {
      for (const char* n : names) EXPECT_EQ(LikeFilter(mask, n), matches) << mask << " / " << n;
    }
  }
}

TEST(Masks, FailOnlyWhenABadOneIsReached) {
  const MaskList masks("*.jpg [ab *.png");
  EXPECT_TRUE(masks.Matches("a.jpg"));
  EXPECT_THAT(FailureReport([&] { masks.Matches("a.png"); }),
              testing::ContainsRegex("Invalid pattern string \r\n(.|\n)*  Number: 93 = (.|\n)*"
                                     "LikeFilter.str='.*.jpg .ab .*.png', Filename='a.png'. -"));
}

TEST(Masks, StayQuickWithManyStars) {
  std::string mask;
  for (int i = 0; i < 100; ++i) mask += "*a";
  EXPECT_FALSE(LikeFilter(mask + "*b", std::string(20'000, 'a')));
  EXPECT_TRUE(LikeFilter(mask + "*", std::string(20'000, 'a')));
}
