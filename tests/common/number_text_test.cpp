#include "common/number_text.h"

#include <gtest/gtest.h>

#include <string>

TEST(NumberText, IsWrittenAnewAndKnowsItsRange) {
  const std::string nines(400, '9');
  const struct {
    std::string typed, text;
    std::optional<std::int32_t> value;
  } table[] = {{"", "0", 0},
               {"000", "0", 0},
               {"007", "7", 7},
               {"2147483647", "2147483647", 2147483647},
               {"2147483648", "2147483648", std::nullopt},
               {"0099999999999", "99999999999", std::nullopt},
               {"12345678901234567890", "1.23456789012346E+19", std::nullopt},
               {"1.23456789012346E+19", "1.23456789012346E+19", std::nullopt},
               {nines, nines, std::nullopt},
               {"-5", "0", 0},
               {"inf", "0", 0},
               {"12 files", "12", 12}};
  for (const auto& row : table) {
    const NumberText number = NormalizeNumber(row.typed);
    EXPECT_EQ(number.text, row.text);
    EXPECT_EQ(number.value, row.value) << row.typed;
  }
}
