#pragma once

#include <QLocale>
#include <utility>

#include "platform/locale_facts.h"

/// The facts of a locale as Qt knows it: by default the user's.
class QtLocaleFacts : public LocaleFacts {
 public:
  explicit QtLocaleFacts(QLocale locale = QLocale::system()) : locale_(std::move(locale)) {}

  std::string MonthName(int month) const override;
  std::string ShortMonthName(int month) const override;
  std::string DecimalPoint() const override;
  std::string ThousandsSeparator() const override;

 private:
  QLocale locale_;
};
