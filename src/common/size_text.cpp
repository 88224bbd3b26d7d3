#include "common/size_text.h"

#include <cmath>
#include <cstdio>
#include <iterator>

#include "common/language.h"
#include "platform/text.h"
#include "trace/err_trace.h"

namespace mCommon {
namespace {

using namespace mLanguageGobals;

/// A number, rounded, in plain digits with a point.
std::string Digits(double number, int decimals) {
  char text[400];  // the largest double has 309 digits before its point
  std::snprintf(text, sizeof text, "%.*f", decimals, number);
  return text;
}

std::string Grouped(double number, const LocaleFacts& locale) {
  std::string text = Digits(std::round(number), 0);
  const std::size_t first = text.starts_with('-') ? 2 : 1;
  const std::string separator = locale.ThousandsSeparator();
  for (std::size_t at = text.size(); at >= first + 3;) {
    at -= 3;
    text.insert(at, separator);
  }
  return text;
}

std::string RoundedAndExact(double bytes, const LocaleFacts& locale) {
  const std::string exact = SizeCorrectView(bytes, 1, locale);
  return bytes < 1000 ? exact : RoundEx(bytes, locale) + " (" + exact + ")";
}

}  // namespace

std::string SizeCorrectView(double Size, int NumberMode, const LocaleFacts& locale) {
  return ErrTrace::inner(
      "mCommon.SizeCorrectView(Size,NumberMode)", ErrTrace::args(Size, NumberMode),
      [&]() -> std::string {
        switch (NumberMode) {
          case 0:
            return Grouped(Size, locale);
          case 1:
            return Grouped(Size, locale).append(" ").append(kBytes);
          case 2:
            return Grouped(std::ceil(Size / 1024), locale).append(" ").append(kKB);
          default:
            return {};
        }
      });
}

std::string RoundEx(double num, const LocaleFacts& locale) {
  return ErrTrace::inner("mCommon.RoundEx(num)", ErrTrace::args(num), [&] {
    constexpr std::string_view kUnits[] = {kBytes, kKB, kMB, kGB};
    double value = num;
    std::size_t steps = 0;
    std::string whole = Digits(std::trunc(value), 0);
    for (; whole.size() > 3; ++steps) {
      value /= 1024;
      whole = Digits(std::trunc(value), 0);
    }
    // So that a value that has become whole still shows its decimals.
    const std::string exact = Digits(value + 0.0000001, 7);
    const std::size_t point = exact.find('.');
    const std::string local =
        exact.substr(0, point) + locale.DecimalPoint() + exact.substr(point + 1);
    std::string text(text::Left(local, whole.size() == 3 ? 3 : 4));
    return text.append(" ").append(steps < std::size(kUnits) ? kUnits[steps] : "");
  });
}

std::string GetFreeSpace(SystemFacts& facts, const LocaleFacts& locale, std::string_view pPath,
                         PathStyle style) {
  return ErrTrace::inner("mCommon.GetFreeSpace(pPath)", ErrTrace::args(pPath),
                         [&]() -> std::string {
                           const auto bytes = facts.FreeBytes(text::Left(pPath, style.rootLength));
                           if (!bytes) return {};
                           return RoundedAndExact(static_cast<double>(*bytes), locale);
                         });
}

std::string GetFileExeSize(SystemFacts& facts, const LocaleFacts& locale, bool Full) {
  return ErrTrace::inner("mCommon.GetFileExeSize(Full)", ErrTrace::args(Full),
                         [&]() -> std::string {
                           const auto size = facts.ProgramSize();
                           if (!size) return {};
                           const auto bytes = static_cast<double>(*size);
                           if (bytes >= 1000 && !Full) return RoundEx(bytes, locale);
                           return RoundedAndExact(bytes, locale);
                         });
}

}  // namespace mCommon
