#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// The pattern of a counter by its position in the list of widths: as many zeros as digits, 1 to
/// 10.
std::string CounterFormatOfRange(std::int32_t range);

/// Appends `value` with leading zeros up to as many digits as `pattern` has; a longer number is
/// never cut, an empty pattern is the plain number.
void AppendCounter(std::int32_t value, std::string_view pattern, std::string& out);

/// The sample of a counter: a typed start value under `pattern`. Digits of any number are taken;
/// a text that is empty or holds anything else stays as it is.
std::string CounterSample(std::string_view start, std::string_view pattern);
