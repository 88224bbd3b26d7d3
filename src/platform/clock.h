#pragma once

#include <cstdint>
#include <memory>
#include <optional>

/// A moment in the user's time zone.
struct LocalTime {
  int year = 0;
  int month = 0;  ///< 1 to 12
  int day = 0;    ///< 1 to 31
  int hour = 0;
  int minute = 0;
  int second = 0;
};

class Clock {
 public:
  virtual ~Clock() = default;

  /// A time that only grows, from an unknown start, for measuring.
  virtual std::int64_t Milliseconds() = 0;

  /// The present moment.
  virtual LocalTime Now() = 0;

  /// A moment given in seconds since 1970-01-01 00:00 UTC; nothing when it has no calendar date.
  virtual std::optional<LocalTime> ToLocal(std::int64_t unix_seconds) = 0;
};

/// The clock and time zone of this machine.
std::unique_ptr<Clock> MakeSystemClock();
