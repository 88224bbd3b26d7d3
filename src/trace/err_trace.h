#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>

#include "trace/failure.h"

/// The way of every failure from the procedure that failed to the event handler at the top.
///
/// A procedure of weight runs its body in `inner`, which adds the procedure's line to the report
/// and raises the failure again; an event handler runs its body in `top`, which hands the report
/// to the reporter and ends normally. Both take the trace string as a template argument and check
/// when compiling that it names as many parameters as values are given. On the good road neither
/// costs more than the call.
namespace ErrTrace {

/// Takes the finished reports; the program's own shows a window.
class Reporter {
 public:
  virtual ~Reporter() = default;

  /// `report` is the whole text, lines parted by CR LF. Must not throw.
  virtual void ShowErrorReport(const std::string& report) noexcept = 0;
};

/// Makes `reporter` the taker of all reports, for as long as the program runs or until the next
/// call; null writes them to standard error.
void SetReporter(Reporter* reporter);

/// A trace string: module, point, procedure, and in brackets the names of its parameters.
template <std::size_t N>
struct TraceString {
  consteval TraceString(const char (&literal)[N]) { std::copy_n(literal, N, text); }  // NOLINT

  /// Reads by index: GCC 12 takes no pointer into a template argument under the sanitizers.
  constexpr std::size_t ParameterCount() const {
    std::size_t count = 0;
    for (std::size_t i = 0; i < N; ++i) {
      if (text[i] == '(' || text[i] == ',') ++count;
    }
    return count;
  }

  char text[N];
};

/// How an argument's value stands in the report.
std::string ValueText(std::string_view value);
std::string ValueText(long long value);
std::string ValueText(double value);

template <class T>
std::string ArgumentText(const T& value) {
  if constexpr (std::is_same_v<T, bool>) {
    return value ? "True" : "False";
  } else if constexpr (std::is_integral_v<T> || std::is_enum_v<T>) {
    return ValueText(static_cast<long long>(value));
  } else if constexpr (std::is_floating_point_v<T>) {
    return ValueText(static_cast<double>(value));
  } else if constexpr (std::is_convertible_v<const T&, std::string_view>) {
    return ValueText(std::string_view(value));
  } else {
    return "{?}";
  }
}

/// The argument values, held by reference: name them as they stand in the trace string.
template <class... T>
std::tuple<const T&...> args(const T&... values) {
  return {values...};
}

namespace detail {

/// Turns the exception in flight into the current failure, adds the line of `trace`.
void AddLine(std::string_view trace, const std::string* values, std::size_t count) noexcept;
/// Raises the current failure again.
[[noreturn]] void RaiseAgain();
/// Ends the current failure and hands its report to the reporter.
void Report() noexcept;

template <class... T>
void Catch(std::string_view trace, const std::tuple<const T&...>& values) noexcept {
  std::apply(
      [&](const T&... value) {
        const std::string texts[sizeof...(T) + 1] = {ArgumentText(value)..., std::string()};
        AddLine(trace, texts, sizeof...(T));
      },
      values);
}

}  // namespace detail

/// Runs `body` and answers what it answers. A failure in it gets the line of this procedure and is
/// raised again as a `Failure`.
template <TraceString kTrace, class Body, class... T>
auto inner(const std::tuple<const T&...>& values, Body&& body) -> decltype(body()) {
  static_assert(kTrace.ParameterCount() == sizeof...(T), "a value for each named parameter");
  try {
    return body();
  } catch (...) {
    detail::Catch(kTrace.text, values);
    detail::RaiseAgain();
  }
}

/// Runs `body`. A failure in it gets the line of this procedure and is reported; answers whether
/// `body` ended without one.
template <TraceString kTrace, class Body, class... T>
bool top(const std::tuple<const T&...>& values, Body&& body) noexcept {
  static_assert(kTrace.ParameterCount() == sizeof...(T), "a value for each named parameter");
  try {
    body();
    return true;
  } catch (...) {
    detail::Catch(kTrace.text, values);
    detail::Report();
    return false;
  }
}

}  // namespace ErrTrace
