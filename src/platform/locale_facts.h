#pragma once

#include <string>

/// What the user's language and region decide.
class LocaleFacts {
 public:
  virtual ~LocaleFacts() = default;

  /// The name of month 1 to 12 as it stands in a date: in full, and abbreviated.
  virtual std::string MonthName(int month) const = 0;
  virtual std::string ShortMonthName(int month) const = 0;

  /// What parts the whole of a number from its fraction, and its thousands from each other.
  virtual std::string DecimalPoint() const = 0;
  virtual std::string ThousandsSeparator() const = 0;
};
