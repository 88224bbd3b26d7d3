#pragma once

#include <algorithm>
#include <cstddef>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <tuple>

#include "trace/argument.h"
#include "trace/failure.h"

class Prompts;
class SystemFacts;

/// The way of every failure from the procedure that failed to the event handler at the top.
///
/// A procedure of weight runs its body in `inner`, which adds the procedure's line to the report
/// and raises the failure again; an event handler runs its body in `top`, which hands the report
/// to the reporter and ends normally. A trace string that is a literal is checked when compiling:
/// it names as many parameters as values are given. On the good road neither costs more than the
/// call.
///
/// The first level writes the head of the report and its own line. What it raises bears the source
/// "ErrTrace.ErrorIn" and the report so far as its description, so the next level knows that it
/// only has to add a line. A report therefore reads from the innermost procedure outward.
namespace ErrTrace {

/// Takes the finished reports; the program's own shows a window.
class Reporter {
 public:
  virtual ~Reporter() = default;

  /// `report` is the whole text, lines parted by CR LF; `slip` is that of the failure. Must not
  /// throw. May let events run, and so be called again before it has returned.
  virtual void ShowErrorReport(const std::string& report, const std::string& slip) noexcept = 0;
};

/// Makes `reporter` the taker of all reports, for as long as the program runs or until the next
/// call; null writes them to standard error.
void SetReporter(Reporter* reporter);

/// Gives the engine what the head of a report tells of machine and program; null: all "?".
void SetFacts(SystemFacts* facts);

/// What ErrorIn does with the failure; added up.
enum Action : int {
  kRaise = 1,             ///< in the end, raise it again
  kCompose = 2,           ///< compose the report, add this level's line
  kDisableCommit = 4,     ///< for the transaction section
  kNoAbort = 8,           ///< for the transaction section
  kNoRollback = 16,       ///< for the transaction section
  kWebSection = 32,       ///< give the web section its place in the head
  kCloseConnection = 64,  ///< for the transaction section
  kInner = kRaise + kCompose + kWebSection,
  kTop = kCompose + kNoAbort + kWebSection,
};

/// The places of a report that a program with a database or a web request fills, and the clean-up
/// of its transaction. Each appends whole lines to the report; its own failure is swallowed. None
/// is set in this program.
struct Sections {
  using Section = std::function<void(std::string& report, int actions)>;
  Section database = {};     ///< in the head, behind the system's own error
  Section web = {};          ///< in the head, last; with kWebSection only
  Section transaction = {};  ///< behind the line of each level, and for user errors too
};
void SetSections(Sections sections);

/// Puts the program under a developer's tools, who is asked through `prompts` at each level of each
/// failure; null: there is no developer, as in every run of the program.
void SetDeveloper(Prompts* prompts);

/// Whether the program runs under a developer's tools, where a failure could be looked at in place.
bool InDevelopmentEnvironment();

/// Copies the failure in flight into the engine's record, unless it holds one already. A handler
/// that does anything before it calls ErrorIn calls this first.
void ErrPreserve() noexcept;

/// Whether a developer wants the failing body to run again. Preserves the failure, unless it is so.
/// Under a developer's tools it asks, but for user errors, and once the developer has cancelled no
/// more. It lets events run then: what fails meanwhile goes its own way, without a question.
bool ErrMustStop() noexcept;

/// What a handler does with the failure in flight, or the preserved one: adds the line of
/// `pMethodName` (module, point, procedure, parameter names in brackets) with `pArgs` to the
/// report, as `pActions` say, and raises it again or answers the report. With neither, a failure
/// that tells so is made. A user error passes without a report. A failure of its own steps never
/// replaces the one that it handles; called from inside itself, it leaves that one alone.
std::string ErrorIn(std::string_view pMethodName, std::span<const Argument> pArgs, int pActions,
                    std::string_view pEnvNames = {}, std::span<const Argument> pEnvValues = {});

/// Ends the failure that ErrorIn handled last and hands its report to the reporter; a user error
/// ends silently.
void ShowErrorReport() noexcept;

/// A trace string: module, point, procedure, and in brackets the names of its parameters, as many
/// as `kParameters`. For the length of one call.
template <std::size_t kParameters>
struct TraceString {
  /// A literal is counted when compiling.
  consteval TraceString(const char* literal)
      : text(literal) {  // NOLINT(google-explicit-constructor)
    const auto named = [](char sign) { return sign == '(' || sign == ','; };
    if (std::count_if(text.begin(), text.end(), named) != kParameters) {
      throw "a value for each named parameter";
    }
  }
  /// One that a table holds or that is put together is taken as it stands.
  constexpr TraceString(std::string_view told)
      : text(told) {}                                   // NOLINT(google-explicit-constructor)
  TraceString(const std::string& told) : text(told) {}  // NOLINT(google-explicit-constructor)

  std::string_view text;
};

/// The argument values, held by reference: name them as they stand in the trace string.
template <class... T>
std::tuple<const T&...> args(const T&... values) {
  return {values...};
}

namespace detail {

/// ErrorIn without its last step.
void Handle(std::string_view trace, std::span<const Argument> values, int actions,
            std::string_view env_names = {}, std::span<const Argument> env_values = {}) noexcept;
/// The last step: raises what was handled.
[[noreturn]] void Raise();

template <class... T>
void Catch(std::string_view trace, const std::tuple<const T&...>& values, int actions) noexcept {
  std::apply(
      [&](const T&... value) {
        const Argument arguments[sizeof...(T) + 1] = {MakeArgument(value)..., Argument()};
        Handle(trace, {arguments, sizeof...(T)}, actions);
      },
      values);
}

}  // namespace detail

/// Runs `body` and answers what it answers. A failure in it gets the line of this procedure and is
/// raised again as a `Failure`; a developer may have `body` run again first.
template <class Body, class... T>
auto inner(TraceString<sizeof...(T)> trace, const std::tuple<const T&...>& values, Body&& body)
    -> decltype(body()) {
  for (;;) {
    try {
      return body();
    } catch (...) {
      if (ErrMustStop()) continue;
      detail::Catch(trace.text, values, kInner);
      detail::Raise();
    }
  }
}
/// As above, for a procedure without parameters.
template <class Body>
auto inner(TraceString<0> trace, Body&& body) -> decltype(body()) {
  return inner(trace, args(), body);
}

/// Runs `body`. A failure in it gets the line of this procedure and is reported; answers whether
/// `body` ended without one. A developer may have it run again first.
template <class Body, class... T>
bool top(TraceString<sizeof...(T)> trace, const std::tuple<const T&...>& values,
         Body&& body) noexcept {
  bool retry = false;
  do {
    try {
      body();
      return true;
    } catch (...) {
      retry = ErrMustStop();
      if (!retry) detail::Catch(trace.text, values, kTop);
    }
  } while (retry);
  // Behind the handler: the reporter lets events run, which wants no failure in flight.
  ShowErrorReport();
  return false;
}
/// As above, for a handler without parameters.
template <class Body>
bool top(TraceString<0> trace, Body&& body) noexcept {
  return top(trace, args(), body);
}

/// Runs `body`, whose failure is told to nobody: for what is shown only where it can be had.
/// Answers whether it ended without one. `inner` has no place in `body`: the report that it begins
/// would have no end.
template <class Body>
bool Quietly(Body&& body) noexcept {
  try {
    body();
    return true;
  } catch (...) {
    return false;
  }
}

/// Runs `body`. When it fails, does `step` before the failure goes on; what fails in `step` is
/// reported by itself, with the line of `trace`.
template <class Step, class Body>
void OnFailure(TraceString<0> trace, Step&& step, Body&& body) {
  try {
    body();
  } catch (...) {
    top(trace, step);
    throw;
  }
}

}  // namespace ErrTrace
