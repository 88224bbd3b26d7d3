#include "names/number_text.h"

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

}  // namespace

NumberText NormalizeNumber(std::string_view typed) {
  const bool begins_with_digit = !typed.empty() && typed.front() >= '0' && typed.front() <= '9';
  if (!begins_with_digit) return {"0", 0};
  double number = 0;
  const auto read = std::from_chars(typed.data(), typed.data() + typed.size(), number);
  if (read.ec == std::errc::result_out_of_range) return {std::string(typed), std::nullopt};
  number = std::trunc(number);
  if (number > std::numeric_limits<std::int32_t>::max()) return {Written(number), std::nullopt};
  return {Written(number), static_cast<std::int32_t>(number)};
}
