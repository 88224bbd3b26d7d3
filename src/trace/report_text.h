#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "platform/system_facts.h"
#include "trace/argument.h"
#include "trace/failure.h"

/// The texts of which a report is made. Lines end in CR LF.
namespace ErrTrace {

inline constexpr std::string_view kNewLine = "\r\n";

/// A number that applications may give to failures of their own; the ranges below count from it.
inline constexpr auto vbObjectError = static_cast<std::int32_t>(0x80040000);
/// The engine's own general failure; the first number behind those of user errors.
inline constexpr auto ERRMAP_APP_FIRST = static_cast<std::int32_t>(0x8004144E);
inline constexpr std::int32_t ERR_GENERAL = ERRMAP_APP_FIRST;

/// Whether the number says that a condition was expected and no fault of the program.
constexpr bool IsUserError(std::int32_t number) {
  return number >= static_cast<std::int32_t>(0x80041065) && number < ERRMAP_APP_FIRST;
}

/// The lines that open a report. Without `facts`, and for each fact that can't be had, "?".
std::string ReportHead(const FailureFacts& failure, std::string_view method, SystemFacts* facts);

/// The line of the system's own error; "" for 0.
std::string ApiErrorLine(std::int32_t code);

/// The line of one procedure: `trace` is its name with the names of its parameters in brackets.
/// Values that don't fit into a line follow it as blocks.
std::string CallStackLine(std::string_view trace, std::span<const Argument> values,
                          std::int32_t line);

/// The line of named values from the surroundings, `names` parted by commas; blocks as above.
std::string EnvironmentLine(std::string_view names, std::span<const Argument> values);

/// What a developer is asked at a failure; `description` is the report so far, if `propagated`.
std::string StopQuestion(std::string_view description, bool propagated);

/// The name of a type as it stands in a source file.
std::string ReadableTypeName(const char* mangled);

}  // namespace ErrTrace
