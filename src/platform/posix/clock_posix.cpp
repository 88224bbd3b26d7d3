#include <time.h>

#include "platform/clock.h"

namespace {

// Passes ask at every row; a tick of some milliseconds is fine enough for them and far cheaper.
#ifdef CLOCK_MONOTONIC_COARSE
constexpr clockid_t kMonotonic = CLOCK_MONOTONIC_COARSE;
#else
constexpr clockid_t kMonotonic = CLOCK_MONOTONIC;
#endif

class SystemClock final : public Clock {
 public:
  SystemClock() { ::tzset(); }  // localtime_r needn't (ctime(3))

  std::int64_t Milliseconds() override {
    struct timespec now = {};
    ::clock_gettime(kMonotonic, &now);
    return std::int64_t{now.tv_sec} * 1000 + now.tv_nsec / 1'000'000;
  }

  LocalTime Now() override { return ToLocal(::time(nullptr)).value_or(LocalTime{}); }

  std::optional<LocalTime> ToLocal(std::int64_t unix_seconds) override {
    const time_t moment = unix_seconds;
    if (!last_local_ || moment != last_moment_) {
      struct tm local = {};
      if (::localtime_r(&moment, &local) == nullptr) return std::nullopt;
      last_moment_ = moment;
      last_local_ = {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday,
                     local.tm_hour,        local.tm_min,     local.tm_sec};
    }
    return last_local_;
  }

 private:
  // Files written one after the other share their second, as do the questions for the present.
  time_t last_moment_ = 0;
  std::optional<LocalTime> last_local_;  ///< of `last_moment_`
};

}  // namespace

std::unique_ptr<Clock> MakeSystemClock() {
  return std::make_unique<SystemClock>();
}
