#pragma once

#include <string>

#include "platform/locale_facts.h"

/// English numbers and no months.
class PlainLocale : public LocaleFacts {
 public:
  std::string MonthName(int) const override { return {}; }
  std::string ShortMonthName(int) const override { return {}; }
  std::string DecimalPoint() const override { return "."; }
  std::string ThousandsSeparator() const override { return ","; }
};
