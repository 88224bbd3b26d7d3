#include "names/counter.h"

#include <gtest/gtest.h>

TEST(Counter, PadsButNeverCuts) {
  struct Row {
    std::int32_t value;
    const char* pattern;
    const char* shown;
  };
  const Row table[] = {
      {1, "0000", "0001"},
      {0, "0000", "0000"},
      {12345, "000", "12345"},
      {7, "", "7"},
      {1, "0000000000", "0000000001"},
      {2147483647, "0", "2147483647"},
      {-5, "000", "-005"},
  };
  for (const Row& row : table) {
    std::string out = "x";
    AppendCounter(row.value, row.pattern, out);
    EXPECT_EQ(out, std::string("x") + row.shown);
  }
}

TEST(Counter, HasAsManyZerosAsDigits) {
  EXPECT_EQ(CounterFormatOfRange(0), "0");
  EXPECT_EQ(CounterFormatOfRange(3), "0000");
  EXPECT_EQ(CounterFormatOfRange(9), "0000000000");
  EXPECT_EQ(CounterFormatOfRange(-1), "0") << "a box without a selection";
}

TEST(Counter, ShowsASampleOfWhatIsTyped) {
  EXPECT_EQ(CounterSample("7", "0000"), "0007");
  EXPECT_EQ(CounterSample("000007", "0000"), "0007");
  EXPECT_EQ(CounterSample("000", "0"), "0");
  EXPECT_EQ(CounterSample("99999999999", "000"), "99999999999");
  EXPECT_EQ(CounterSample("", "0000"), "");
  EXPECT_EQ(CounterSample("x7", "0000"), "x7");
}
