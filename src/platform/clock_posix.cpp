#include <time.h>

#include "platform/clock.h"

namespace {

class SystemClock final : public Clock {
 public:
  SystemClock() { ::tzset(); }  // localtime_r needn't (ctime(3))

  std::int64_t Milliseconds() override {
    struct timespec now = {};
    ::clock_gettime(CLOCK_MONOTONIC, &now);
    return std::int64_t{now.tv_sec} * 1000 + now.tv_nsec / 1'000'000;
  }

  LocalTime Now() override { return ToLocal(::time(nullptr)).value_or(LocalTime{}); }

  std::optional<LocalTime> ToLocal(std::int64_t unix_seconds) override {
    const time_t moment = unix_seconds;
    struct tm local = {};
    if (::localtime_r(&moment, &local) == nullptr) return std::nullopt;
    return LocalTime{local.tm_year + 1900, local.tm_mon + 1, local.tm_mday,
                     local.tm_hour,        local.tm_min,     local.tm_sec};
  }
};

}  // namespace

std::unique_ptr<Clock> MakeSystemClock() {
  return std::make_unique<SystemClock>();
}
