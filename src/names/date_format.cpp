#include "names/date_format.h"

#include <charconv>
#include <cstddef>

namespace {

std::string_view PartAt(int position) {
  const auto i = static_cast<std::size_t>(position);  // a negative one is beyond the table too
  return i < kDateParts.size() ? kDateParts[i] : std::string_view();
}

/// The longest part that `t` begins with; empty when it begins with none.
std::string_view PartAtFront(std::string_view t) {
  std::string_view longest;
  for (const std::string_view part : kDateParts) {
    if (part.size() > longest.size() && t.starts_with(part)) longest = part;
  }
  return longest;
}

void AppendNumber(int value, std::size_t width, std::string& out) {
  char buffer[16];
  const char* const end = std::to_chars(buffer, buffer + sizeof buffer, value).ptr;
  const auto count = static_cast<std::size_t>(end - buffer);
  if (count < width) out.append(width - count, '0');
  out.append(buffer, count);
}

}  // namespace

std::string ComposeDateFormat(int first, int second, int third, std::string_view separator) {
  std::string format;
  for (const int position : {first, second, third}) {
    const std::string_view part = PartAt(position);
    if (part.empty()) continue;
    if (!format.empty()) format += separator;
    format += part;
  }
  return format;
}

DateFormatter::DateFormatter(std::string_view format, const LocaleFacts& locale) {
  while (!format.empty()) {
    const std::string_view part = PartAtFront(format);
    if (!part.empty()) {
      tokens_.push_back({part, {}});
    } else if (tokens_.empty() || !tokens_.back().part.empty()) {
      tokens_.push_back({{}, std::string(1, format.front())});
    } else {
      tokens_.back().literal += format.front();
    }
    format.remove_prefix(part.empty() ? 1 : part.size());
  }
  for (std::size_t i = 0; i < months_.size(); ++i) {
    months_[i] = locale.MonthName(static_cast<int>(i) + 1);
    short_months_[i] = locale.ShortMonthName(static_cast<int>(i) + 1);
  }
}

void DateFormatter::AppendTo(int year, int month, int day, std::string& out) const {
  for (const Token& token : tokens_) AppendToken(token, year, month, day, out);
}

void DateFormatter::AppendToken(const Token& token, int year, int month, int day,
                                std::string& out) const {
  const std::size_t width = token.part.size();
  const auto month_index = static_cast<std::size_t>(month - 1) % months_.size();
  switch (width == 0 ? '\0' : token.part.front()) {
    case 'd':
      return AppendNumber(day, width, out);
    case 'y':
      return AppendNumber(width == 2 ? year % 100 : year, width, out);
    case 'm':
      if (width > 2) {
        out += width == 3 ? short_months_[month_index] : months_[month_index];
      } else {
        AppendNumber(month, width, out);
      }
      return;
    default:
      out += token.literal;
  }
}

std::string FormatDate(std::string_view format, int year, int month, int day,
                       const LocaleFacts& locale) {
  std::string out;
  DateFormatter(format, locale).AppendTo(year, month, day, out);
  return out;
}
