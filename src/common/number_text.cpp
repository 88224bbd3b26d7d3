#include "common/number_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <system_error>

namespace {

/// Whole numbers up to 15 digits in full, greater ones as in "1.5E+20".
std::string Written(double number) {
  // Not by printf: what it writes in the user's locale could not be read again.
  std::array<char, 32> buffer;
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number,
                                 std::chars_format::general, 15)
                       .ptr;
  std::replace(buffer.data(), end, 'e', 'E');
  return std::string(buffer.data(), end);
}

bool IsDigit(char sign) {
  return sign >= '0' && sign <= '9';
}

/// Without blanks at either end.
std::string_view Bare(std::string_view put_in) {
  constexpr std::string_view kBlanks = " \t\r\n";
  const std::size_t begin = std::min(put_in.find_first_not_of(kBlanks), put_in.size());
  return put_in.substr(begin, put_in.find_last_not_of(kBlanks) + 1 - begin);
}

}  // namespace

NumberText NormalizeNumber(std::string_view typed) {
  if (typed.empty() || !IsDigit(typed.front())) return {"0", 0};
  double number = 0;
  const auto read = std::from_chars(typed.data(), typed.data() + typed.size(), number);
  if (read.ec == std::errc::result_out_of_range) return {std::string(typed), std::nullopt};
  number = std::trunc(number);
  if (number > std::numeric_limits<std::int32_t>::max()) return {Written(number), std::nullopt};
  return {Written(number), static_cast<std::int32_t>(number)};
}

std::optional<std::string> TakeDigits(std::string_view before, std::string_view after) {
  const auto differ = std::mismatch(before.begin(), before.end(), after.begin(), after.end());
  const std::string_view head(after.begin(), differ.second);
  before.remove_prefix(head.size());
  after.remove_prefix(head.size());
  const auto end = std::mismatch(before.rbegin(), before.rend(), after.rbegin(), after.rend());
  const std::string_view tail(end.second.base(), after.end());
  after.remove_suffix(tail.size());

  std::string_view digits = Bare(after);
  if (digits.starts_with('+')) digits.remove_prefix(1);
  if (!std::all_of(digits.begin(), digits.end(), IsDigit)) return std::nullopt;
  return std::string(head).append(digits).append(tail);
}
