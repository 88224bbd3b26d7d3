#include "trace/report_text.h"

#include <cxxabi.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <system_error>

#include "platform/text.h"

namespace ErrTrace {
namespace {

constexpr std::string_view kHeadTemplate =
    "%Descr% %nl%  Time='%Time%' App='%App%:%Ver%' ADO-version='%ADOVersion%' Computer='%Comp%' "
    "%nl%  Method: %MethodName% %nl%  Number: %ErrNum% = &H%ErrHex% = vbObjectError %ErrNumRel1% "
    "= ERRMAP_APP_FIRST %ErrNumRel2% %ErrStd%%nl%  Source: %Source% %nl%  Description: "
    "%Descr%%nl%";

constexpr std::size_t kLineWidth = 100;

struct Placeholder {
  std::string_view name;
  std::string value;
};

/// What `fact` answers, or "?" when it answers nothing or fails: a second failure mustn't cost the
/// report of the first.
template <class Fact>
std::string OrUnknown(SystemFacts* facts, Fact&& fact) {
  try {
    std::string answer = facts != nullptr ? fact(*facts) : std::string();
    return answer.empty() ? "?" : answer;
  } catch (...) {
    return "?";
  }
}

std::string TimeText(const LocalTime& now) {
  char text[32];
  std::snprintf(text, sizeof text, "%02d/%02d/%02d %02d:%02d:%02d", now.month, now.day,
                now.year % 100, now.hour, now.minute, now.second);
  return text;
}

std::string ProgramName(std::string_view path) {
  const std::string_view file = path.substr(path.rfind('/') + 1);
  return std::string(file.substr(0, file.rfind('.')));
}

std::string Hex(std::int32_t number) {
  char text[16];
  std::snprintf(text, sizeof text, "%X", static_cast<unsigned>(number));
  return text;
}

/// How far `number` lies from `start`, as "+ 6" or "- 6".
std::string Distance(std::int32_t number, std::int32_t start) {
  const std::int64_t distance = std::int64_t{number} - start;
  return (distance < 0 ? "- " : "+ ") + std::to_string(std::abs(distance));
}

std::string FillIn(std::string_view pattern, std::span<const Placeholder> placeholders) {
  std::string text;
  for (std::size_t at = pattern.find('%'); at != pattern.npos; at = pattern.find('%')) {
    text += pattern.substr(0, at);
    const std::size_t end = pattern.find('%', at + 1);
    const std::string_view name = pattern.substr(at + 1, end - at - 1);
    text += std::ranges::find(placeholders, name, &Placeholder::name)->value;
    pattern.remove_prefix(end + 1);
  }
  return text.append(pattern);
}

std::string ValueText(const Argument& value) {
  switch (value.kind) {
    case Argument::kText:
      return "'" + std::string(value.text) + "'";
    case Argument::kInteger:
      return std::to_string(value.integer);
    case Argument::kReal: {
      char text[32];
      std::snprintf(text, sizeof text, "%.15g", value.real);
      return text;
    }
    case Argument::kBoolean:
      return value.integer != 0 ? "True" : "False";
    case Argument::kArray:
      return "{Array}";
    case Argument::kEmpty:
      return "{Empty}";
    case Argument::kNull:
      return "{Null}";
    case Argument::kObject:
      return "{" + ReadableTypeName(value.text.data()) + "}";
    case Argument::kOther:
      break;
  }
  return "{?}";
}

/// Whether a value stands below the line: it has lines of its own, or is XML.
bool IsBlock(const Argument& value) {
  return value.kind == Argument::kText &&
         (value.text.find_first_of("\r\n") != value.text.npos || value.text.starts_with("xml") ||
          value.text.starts_with("<"));
}

struct NamedValues {
  std::string line;    ///< "name=value, name=value"
  std::string blocks;  ///< whole lines
};

NamedValues NameValues(std::string_view names, std::span<const Argument> values) {
  NamedValues named;
  for (const Argument& value : values) {
    const std::size_t end = std::min(names.find(','), names.size());
    const std::string name(names.substr(0, end));
    names.remove_prefix(std::min(end + 1, names.size()));
    if (!named.line.empty()) named.line += ", ";
    named.line += name + "=" + (IsBlock(value) ? "{Text}" : ValueText(value));
    if (IsBlock(value)) {
      named.blocks.append("    Value Of ").append(name).append(":").append(kNewLine);
      named.blocks.append(value.text).append(kNewLine);
    }
  }
  return named;
}

}  // namespace

std::string ReportHead(const FailureFacts& failure, std::string_view method, SystemFacts* facts) {
  const Placeholder placeholders[] = {
      {"nl", std::string(kNewLine)},
      {"MethodName", std::string(method)},
      {"Comp", OrUnknown(facts, [](SystemFacts& known) { return known.ComputerName(); })},
      {"Time", OrUnknown(facts, [](SystemFacts& known) { return TimeText(known.Now()); })},
      {"App",
       OrUnknown(facts, [](SystemFacts& known) { return ProgramName(known.ProgramPath()); })},
      {"Ver", OrUnknown(facts, [](SystemFacts& known) { return known.ProgramVersion(); })},
      {"ADOVersion", "?"},
      {"ErrNum", std::to_string(failure.number)},
      {"ErrHex", Hex(failure.number)},
      {"ErrNumRel1", Distance(failure.number, vbObjectError)},
      {"ErrNumRel2", Distance(failure.number, ERRMAP_APP_FIRST)},
      {"ErrStd", failure.number == ERR_GENERAL ? "= ERR_GENERAL" : ""},
      {"Source", failure.source},
      {"Descr", failure.description},
  };
  return FillIn(kHeadTemplate, placeholders);
}

std::string ApiErrorLine(std::int32_t code) {
  if (code == 0) return {};
  std::string message = std::generic_category().message(code);
  std::erase_if(message, [](char c) { return c == '\r' || c == '\n'; });
  return "  API Error: (" + std::to_string(code) + ") " + message + std::string(kNewLine);
}

std::string CallStackLine(std::string_view trace, std::span<const Argument> values,
                          std::int32_t line) {
  const std::size_t bracket = std::min(trace.find('('), trace.size());
  std::string_view names = trace.substr(std::min(bracket + 1, trace.size()));
  names = names.substr(0, names.rfind(')'));
  const NamedValues named = NameValues(names, values);
  std::string text =
      "  Call Stack: " + std::string(trace.substr(0, bracket)) + "(" + named.line + ")";
  if (line != 0) text += "  at Line " + std::to_string(line);
  text += ' ';
  const std::size_t width = text::Length(text);
  if (width < kLineWidth) text.append(kLineWidth - width, '-');
  return text.append(kNewLine).append(named.blocks);
}

std::string EnvironmentLine(std::string_view names, std::span<const Argument> values) {
  const NamedValues named = NameValues(names, values);
  return "    Env: " + named.line + std::string(kNewLine) + named.blocks;
}

std::string StopQuestion(std::string_view description, bool propagated) {
  return std::string("Error: ")
      .append(description.substr(0, description.find_first_of("\r\n")))
      .append(propagated ? " (Propagated)\n" : "\n")
      .append(
          "Do you want to retry the operation in step mode?\n"
          "Click YES to retry, NO to move to the caller, CANCEL for no more stops");
}

std::string ReadableTypeName(const char* mangled) {
  int status = 0;
  const std::unique_ptr<char, decltype(&std::free)> name(
      abi::__cxa_demangle(mangled, nullptr, nullptr, &status), &std::free);
  return status == 0 ? name.get() : mangled;
}

}  // namespace ErrTrace
