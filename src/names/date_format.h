#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "platform/services.h"

/// The parts to choose from in each of the three boxes of a date element, by position.
inline constexpr std::array<std::string_view, 9> kDateParts = {"",    "d",    "dd", "m",   "mm",
                                                               "mmm", "mmmm", "yy", "yyyy"};

/// The format of a date element: the chosen parts, by position in `kDateParts`, with `separator`
/// between those that are not empty. A position outside the table is an empty part.
std::string ComposeDateFormat(int first, int second, int third, std::string_view separator);

/// A date format taken apart for use with many dates. The tokens are the parts of `kDateParts`,
/// the longest that fits, in small letters only; all else stands for itself.
class DateFormatter {
 public:
  DateFormatter(std::string_view format, const LocaleFacts& locale);

  /// Appends the date to `out`; months 1 to 12.
  void AppendTo(int year, int month, int day, std::string& out) const;

 private:
  struct Token {
    std::string_view part;  ///< of `kDateParts`; empty for a literal
    std::string literal;
  };
  void AppendToken(const Token& token, int year, int month, int day, std::string& out) const;

  std::vector<Token> tokens_;
  std::array<std::string, 12> months_;
  std::array<std::string, 12> short_months_;
};

/// One date under `format`.
std::string FormatDate(std::string_view format, int year, int month, int day,
                       const LocaleFacts& locale);
