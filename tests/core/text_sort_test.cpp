#include "core/text_sort.h"

#include <gtest/gtest.h>

#include "common/natural_order.h"
#include "core/number_sort.h"

static std::vector<std::string> Sorted(const std::vector<std::string>& texts, bool ascending) {
  std::vector<std::string> sorted;
  const auto text_of = [&](std::size_t i) { return std::string_view(texts[i]); };
  for (const auto i : SortedByText(texts.size(), text_of, AppendNaturalKey, ascending)) {
    sorted.push_back(texts[i]);
  }
  return sorted;
}

TEST(TextSort, PutsTextsInNaturalOrderAndItsExactReverse) {
  const std::string many(300, '7');
  const std::vector<std::string> table[] = {
      {"", "a", "a 1", "a1", "a01", "a2", "A10", "a10b", "b"},
      {"/a/", "/a/\1", "/a/b", "/a\1/", "/a\2", "/a\3", "/a b/", "/a.b/", "/a1/", "/a1/b", "/ab/"},
      {"x-", "x0", "x00", "x0a", "x5", "x10", "x:", "xa", "\u0660\xFF", "\u0661"},
      {"9", "99999999", "100000000", "999999999", "1000000000", many, "1" + many, "2" + many, "a"},
      {"A1", "a1", "A01", "a01", "a001", "a1b1", "a01b1", "a1b01", "a01b01", "a1b2"},
      {"z", "Z2", "\u00C9", "\u00E9", "\u00C9t", "\U0010FFFF", "\x80", "\xFF", "\xFFz"},
      {"Holiday in 2024", "Holiday in 2024 1", "holiday in 2024 2", "Holiday in 2024a"},
  };
  for (const std::vector<std::string>& expected : table) {
    const std::vector<std::string> texts(expected.rbegin(), expected.rend());
    EXPECT_EQ(Sorted(texts, true), expected);
    EXPECT_EQ(Sorted(expected, false), texts);
  }
}

TEST(TextSort, FindsTheOneTextThatPartsBeforeTheOthers) {
  for (std::size_t odd = 0; odd < 300; ++odd) {
    std::vector<std::string> texts(300, "Holiday in Portugal - 1.jpg");
    texts[odd] = "Holiday in Italy.jpg";
    EXPECT_EQ(Sorted(texts, true).front(), texts[odd]) << odd;
  }
}

TEST(TextSort, KeepsEqualTextsAsNumberedAndCanBeStopped) {
  constexpr std::size_t kCount = 200'000;
  std::vector<std::string> texts;
  for (std::size_t i = 0; i < kCount; ++i) {
    texts.push_back("Picture " + std::to_string(i * 7919 % kCount / 2));
  }
  const auto text_of = [&](std::size_t i) { return std::string_view(texts[i]); };
  for (const bool ascending : {true, false}) {
    const auto sorted = SortedByText(kCount, text_of, AppendNaturalKey, ascending);
    for (std::size_t i = 0; i < kCount; ++i) {
      ASSERT_EQ(texts[sorted[i]],
                "Picture " + std::to_string((ascending ? i : kCount - 1 - i) / 2));
      ASSERT_TRUE(i % 2 == 0 || sorted[i - 1] < sorted[i]);
    }
  }
  int calls = 0;
  const auto go_on = [&] { return ++calls < 300; };
  EXPECT_TRUE(SortedByText(kCount, text_of, AppendNaturalKey, true, go_on).empty());
  EXPECT_EQ(calls, 300) << "asked often, and not again";
}

TEST(NumberSort, KeepsEqualNumbersAsNumberedAndTakesAnyOthersInTheirOrder) {
  const std::vector<double> values = {3, -0.0, 1e300, -2, 256, 0, 3, -1e-300, 255, 65536.5, -2};
  std::vector<std::uint64_t> keys;
  for (const double value : values) keys.push_back(KeyOfNumber(value));
  EXPECT_EQ(SortedByNumber(keys), (std::vector<std::uint32_t>{3, 10, 7, 1, 5, 0, 6, 8, 4, 9, 2}));
  EXPECT_EQ(SortedByNumber(keys, false),
            (std::vector<std::uint32_t>{2, 9, 4, 8, 0, 6, 1, 5, 7, 3, 10}));
  EXPECT_TRUE(SortedByNumber({}).empty());
}
