#pragma once

#include <QLocale>

#include "platform/locale_facts.h"

/// The facts of the user's locale as Qt knows it.
class QtLocaleFacts : public LocaleFacts {
 public:
  std::string MonthName(int month) const override;
  std::string ShortMonthName(int month) const override;
  std::string DecimalPoint() const override;
  std::string ThousandsSeparator() const override;

 private:
  QLocale locale_ = QLocale::system();
};
