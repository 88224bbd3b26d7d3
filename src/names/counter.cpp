#include "names/counter.h"

#include <algorithm>
#include <charconv>
#include <cstddef>

namespace {

constexpr std::int32_t kWidest = 10;

void AppendPadded(std::string_view digits, std::size_t width, std::string& out) {
  if (digits.size() < width) out.append(width - digits.size(), '0');
  out += digits;
}

}  // namespace

std::string CounterFormatOfRange(std::int32_t range) {
  return std::string(static_cast<std::size_t>(std::clamp(range, 0, kWidest - 1)) + 1, '0');
}

void AppendCounter(std::int32_t value, std::string_view pattern, std::string& out) {
  char buffer[16];
  const char* const end = std::to_chars(buffer, buffer + sizeof buffer, value).ptr;
  const char* const digits = value < 0 ? buffer + 1 : buffer;
  if (value < 0) out += '-';
  AppendPadded({digits, static_cast<std::size_t>(end - digits)}, pattern.size(), out);
}

std::string CounterSample(std::string_view start, std::string_view pattern) {
  if (start.empty() || start.find_first_not_of("0123456789") != start.npos) {
    return std::string(start);
  }
  start.remove_prefix(std::min(start.find_first_not_of('0'), start.size() - 1));
  std::string sample;
  AppendPadded(start, pattern.size(), sample);
  return sample;
}
