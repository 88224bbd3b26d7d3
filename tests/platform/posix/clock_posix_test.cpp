#include <gtest/gtest.h>
#include <stdlib.h>
#include <time.h>

#include <limits>
#include <string>

#include "platform/clock.h"

namespace {

std::string Text(const std::optional<LocalTime>& t) {
  if (!t) return "none";
  char text[64];
  std::snprintf(text, sizeof text, "%04d.%02d.%02d %02d:%02d:%02d", t->year, t->month, t->day,
                t->hour, t->minute, t->second);
  return text;
}

}  // namespace

TEST(SystemClock, TellsMomentsInTheUsersTimeZone) {
  const char* before = ::getenv("TZ");
  const std::string kept = before ? before : "";
  struct {
    const char* zone;
    std::int64_t seconds;
    const char* expected;
  } const table[] = {
      {"UTC0", 0, "1970.01.01 00:00:00"},
      {"UTC0", -1, "1969.12.31 23:59:59"},
      {"UTC0", 4'102'444'800, "2100.01.01 00:00:00"},
      {"CET-1CEST,M3.5.0,M10.5.0/3", 1'711'846'799, "2024.03.31 01:59:59"},  // summer time begins
      {"CET-1CEST,M3.5.0,M10.5.0/3", 1'711'846'800, "2024.03.31 03:00:00"},
      {"UTC0", std::numeric_limits<std::int64_t>::max(), "none"},
  };
  for (const auto& row : table) {
    ::setenv("TZ", row.zone, 1);
    EXPECT_EQ(Text(MakeSystemClock()->ToLocal(row.seconds)), row.expected) << row.zone;
  }
  before ? ::setenv("TZ", kept.c_str(), 1) : ::unsetenv("TZ");
  ::tzset();
}
