#include "common/size_text.h"

#include <gtest/gtest.h>

#include "support/fake_services.h"

namespace {

/// Separators of several bytes, as the French and the Arabic ones.
class WideLocale : public PlainLocale {
 public:
  std::string DecimalPoint() const override { return "\u066B"; }
  std::string ThousandsSeparator() const override { return "\u202F"; }
};

TEST(SizeText, WritesWholeNumbersInThousandsOrThreeDigitsAndAUnit) {
  const PlainLocale locale;
  const struct {
    double size;
    int mode;
    const char* text;
  } whole[] = {{0, 0, "0"},          {1000, 0, "1,000"}, {1536001, 1, "1,536,001 bytes"},
               {-1234, 0, "-1,234"}, {-123, 0, "-123"},  {1536001, 2, "1,501 KB"},
               {1025, 2, "2 KB"},    {5, 3, ""},         {0x1p53, 0, "9,007,199,254,740,992"}};
  for (const auto& row : whole) {
    EXPECT_EQ(mCommon::SizeCorrectView(row.size, row.mode, locale), row.text) << row.size;
  }
  const std::pair<double, const char*> rounded[] = {
      {0, "0.00 bytes"},    {12, "12.0 bytes"}, {999, "999 bytes"},
      {1000, "0.97 KB"},    {1500, "1.46 KB"},  {102400, "100 KB"},
      {1048576, "1.00 MB"}, {1e12, "931 GB"},   {0x1p40, "1.00 "}};
  for (const auto& [number, text] : rounded) EXPECT_EQ(mCommon::RoundEx(number, locale), text);
  EXPECT_EQ(mCommon::SizeCorrectView(12345, 0, WideLocale()), "12\u202F345");
  EXPECT_EQ(mCommon::RoundEx(1500, WideLocale()), "1\u066B46 KB");
}

}  // namespace
