#include "names/counter.h"

#include <gtest/gtest.h>

TEST(Counter, PadsButNeverCuts) {
  const std::tuple<std::int32_t, const char*, const char*> table[] = {
      {0, "0000", "0000"}, {0, "", "0"}, {2147483647, "000", "2147483647"}, {-5, "000", "-005"}};
  for (const auto& [value, pattern, shown] : table) {
    std::string out = "x";
    AppendCounter(value, pattern, out);
    EXPECT_EQ(out, std::string("x") + shown);
  }
  for (const auto& [range, digits] : {std::pair{0, 1u}, {3, 4}, {9, 10}, {10, 10}, {-1, 1}}) {
    EXPECT_EQ(CounterFormatOfRange(range), std::string(digits, '0'));
  }
}

TEST(Counter, ShowsASampleOfWhatIsTyped) {
  const char* const table[][3] = {{"8", "0000", "0008"}, {"000007", "0000", "0007"},
                                  {"000", "0", "0"},     {"1234567890", "000", "1234567890"},
                                  {"", "0000", ""},      {"x7", "0000", "x7"}};
  for (const auto& [typed, pattern, shown] : table) EXPECT_EQ(CounterSample(typed, pattern), shown);
}
