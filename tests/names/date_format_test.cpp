#include "names/date_format.h"

#include <gtest/gtest.h>

#include "support/fake_services.h"

TEST(DateFormat, PutsTheSeparatorBetweenChosenPartsOnly) {
  const struct {
    int first, second, third;
    const char *separator, *format;
  } table[] = {{8, 4, 2, "-", "yyyy-mm-dd"}, {8, 0, 2, "-", "yyyy-dd"},   {0, 4, 2, "-", "mm-dd"},
               {8, 4, 0, "-", "yyyy-mm"},    {0, 0, 2, "-", "dd"},        {8, 0, 0, "-", "yyyy"},
               {0, 6, 0, "-", "mmmm"},       {0, 0, 0, "-", ""},          {8, 4, 2, "", "yyyymmdd"},
               {2, 2, 2, " ", "dd dd dd"},   {1, 3, 7, ". ", "d. m. yy"}, {-1, 5, 9, "-", "mmm"}};
  for (const auto& row : table) {
    EXPECT_EQ(ComposeDateFormat(row.first, row.second, row.third, row.separator), row.format);
  }
}

TEST(DateFormat, TakesTheLongestTokenAndLeavesAllElse) {
  const char* const table[][2] = {{"d.m.yy", "9.3.24"},   {"dd mmm", "09 Mär"},
                                  {"d. mmmm", "9. März"}, {"mmmmm", "März3"},
                                  {"yyyyyy", "202424"},   {"yyy-mm", "24y-03"},
                                  {"ddd", "099"},         {"YYYY MM DD", "YYYY MM DD"},
                                  {"y hh:nn", "y hh:nn"}, {"\xFF-d\u00E9", "\xFF-9\u00E9"}};
  const PlainLocale months;
  for (const auto& [format, shown] : table) {
    EXPECT_EQ(FormatDate(format, 2024, 3, 9, months), shown) << format;
  }
  EXPECT_EQ(FormatDate("yyyy yy mmmm mmm", 807, 1, 1, months), "0807 07 Januar Jan");
}
