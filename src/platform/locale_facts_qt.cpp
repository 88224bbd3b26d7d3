#include "platform/locale_facts_qt.h"

std::string QtLocaleFacts::MonthName(int month) const {
  return locale_.monthName(month, QLocale::LongFormat).toStdString();
}

std::string QtLocaleFacts::ShortMonthName(int month) const {
  return locale_.monthName(month, QLocale::ShortFormat).toStdString();
}
