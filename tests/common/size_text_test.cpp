#include "common/size_text.h"

#include <gtest/gtest.h>
#include <string>

#include "common/number_text.h"
#include "support/fake_services.h"

TEST(SizeText, WritesWholeNumbersInThousandsOrThreeDigitsAndAUnit) {
  const PlainLocale locale;
  const struct : PlainLocale {
    std::string DecimalPoint() const override { return "\u066B"; }
    std::string ThousandsSeparator() const override { return "\u202F"; }
  } wide;  // separators of several bytes, as the French and the Arabic ones
  const std::tuple<double, int, const char*> whole[] = {
      {0, 0, "0"},          {1000, 0, "1,000"}, {1536001, 1, "1,536,001 bytes"},
      {-1234, 0, "-1,234"}, {-123, 0, "-123"},  {1536001, 2, "1,501 KB"},
      {1025, 2, "2 KB"},    {5, 3, ""},         {0x1p53, 0, "9,007,199,254,740,992"}};
  for (const auto& [size, mode, text] : whole) {
    EXPECT_EQ(mCommon::SizeCorrectView(size, mode, locale), text) << size;
  }
  const std::pair<double, const char*> rounded[] = {
      {0, "0.00 bytes"},    {12, "12.0 bytes"}, {999, "999 bytes"},
      {1000, "0.97 KB"},    {1500, "1.46 KB"},  {102400, "100 KB"},
      {1048576, "1.00 MB"}, {1e12, "931 GB"},   {0x1p40, "1.00 "}};
  for (const auto& [number, text] : rounded) EXPECT_EQ(mCommon::RoundEx(number, locale), text);
  EXPECT_EQ(mCommon::SizeCorrectView(12345, 0, wide), "12\u202F345");
  EXPECT_EQ(mCommon::RoundEx(1500, wide), "1\u066B46 KB");
}

TEST(NumberText, IsWrittenAnewAndKnowsItsRange) {
  const std::string nines(400, '9');
  const std::tuple<std::string, std::string, std::optional<std::int32_t>> table[] = {
      {"", "0", 0},
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
  for (const auto& [typed, text, value] : table) {
    const NumberText number = NormalizeNumber(typed);
    EXPECT_EQ(number.text, text);
    EXPECT_EQ(number.value, value) << typed;
  }
}
