#include "platform/system_facts.h"

#include <gtest/gtest.h>
#include <time.h>

#include <limits>

#include "platform/clock.h"
#include "support/temp_folder.h"

TEST(SystemClock, TellsMomentsInTheUsersTimeZone) {
  const char* before = ::getenv("TZ");
  const std::string kept = before ? before : "";
  const std::pair<std::int64_t, std::vector<int>> table[] = {
      {-3601, {1969, 12, 31, 23, 59, 59}},
      {1'711'846'799, {2024, 3, 31, 1, 59, 59}},
      {1'711'846'800, {2024, 3, 31, 3, 0, 0}},
      {4'102'444'800, {2100, 1, 1, 1, 0, 0}},
      {std::numeric_limits<std::int64_t>::max(), {}}};
  ::setenv("TZ", "CET-1CEST,M3.5.0,M10.5.0/3", 1);
  for (const auto& [seconds, expected] : table) {
    std::vector<int> moment;
    if (const auto t = MakeSystemClock()->ToLocal(seconds)) {
      moment = {t->year, t->month, t->day, t->hour, t->minute, t->second};
    }
    EXPECT_EQ(moment, expected) << seconds;
  }
  before ? ::setenv("TZ", kept.c_str(), 1) : ::unsetenv("TZ");
  ::tzset();
}
