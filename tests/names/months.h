#pragma once

#include <cstddef>
#include <string>

#include "support/fake_services.h"

/// German months: one has a letter beyond ASCII, and the short names differ from the long ones.
class Months : public PlainLocale {
 public:
  std::string MonthName(int month) const override {
    static const char* const kNames[] = {"Januar", "Februar", "März"};
    return month <= 3 ? kNames[static_cast<std::size_t>(month - 1)] : "Monat";
  }
  std::string ShortMonthName(int month) const override {
    static const char* const kNames[] = {"Jan", "Feb", "Mär"};
    return month <= 3 ? kNames[static_cast<std::size_t>(month - 1)] : "Mon";
  }
};
