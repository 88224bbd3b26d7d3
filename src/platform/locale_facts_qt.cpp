#include "platform/locale_facts_qt.h"

std::string QtLocaleFacts::MonthName(int month) const {
  return locale_.monthName(month, QLocale::LongFormat).toStdString();
}

std::string QtLocaleFacts::ShortMonthName(int month) const {
  return locale_.monthName(month, QLocale::ShortFormat).toStdString();
}

std::string QtLocaleFacts::DecimalPoint() const {
  return locale_.decimalPoint().toStdString();
}

std::string QtLocaleFacts::ThousandsSeparator() const {
  return locale_.groupSeparator().toStdString();
}
