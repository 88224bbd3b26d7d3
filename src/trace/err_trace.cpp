#include "trace/err_trace.h"

#include <cstdio>
#include <exception>
#include <new>
#include <system_error>
#include <typeinfo>
#include <utility>

#include "platform/build_facts.h"
#include "platform/services.h"
#include "trace/report_text.h"

namespace ErrTrace {
namespace {

constexpr std::string_view kPropagated = "ErrTrace.ErrorIn";
constexpr std::string_view kNoStop = "NoStop";

/// The failure in flight: one record is enough, because the program runs on one thread.
struct Record {
  std::int32_t gErrNumber = 0;
  std::string gErrSource;       ///< kPropagated once a report was composed
  std::string gErrDescription;  ///< the report, once it was composed
  std::string gErrHelpFile;
  std::int32_t gErrHelpContext = 0;
  std::int32_t gErrLastDllError = 0;  ///< errno
  std::int32_t gErrLine = 0;
  std::string gErrSlip;  ///< beside the report, which says nothing of it
  bool gErrPreserved = false;
  std::string gErrText;  ///< the report while it is being composed
};

Record g_record;
bool g_handling = false;
Reporter* g_reporter = nullptr;
SystemFacts* g_facts = nullptr;
Prompts* g_developer = nullptr;
bool g_asking = false;  ///< the developer, right now
std::string_view gStopMode;
Sections g_sections;

/// Runs one step of the engine. What it can't do is left out: the failure being handled matters
/// more than the one that came up on the way.
template <class Step>
void Guarded(Step&& step) noexcept {
  try {
    step();
  } catch (...) {
  }
}

FailureFacts FactsOf(const std::exception& other, std::int32_t system_error) {
  return {.number = kInternalError,
          .description = other.what(),
          .source = ReadableTypeName(typeid(other).name()),
          .system_error = system_error};
}

FailureFacts FactsOf(const std::exception_ptr& in_flight) {
  try {
    std::rethrow_exception(in_flight);
  } catch (const Failure& failure) {
    return failure.Facts();
  } catch (const std::bad_alloc&) {
    return {.number = kOutOfMemory, .description = "Out of memory"};
  } catch (const std::system_error& other) {
    // The codes of other categories (streams, futures) are no numbers of the system.
    const bool is_errno = other.code().category() == std::generic_category() ||
                          other.code().category() == std::system_category();
    return FactsOf(other, is_errno ? other.code().value() : 0);
  } catch (const std::exception& other) {
    return FactsOf(other, 0);
  } catch (...) {
    return {.number = kInternalError, .description = "Internal error"};
  }
}

void SetRecord(FailureFacts facts) {
  if (facts.source.empty()) facts.source = build_facts::kTitle;
  g_record = Record();
  g_record.gErrNumber = facts.number;
  g_record.gErrSource = std::move(facts.source);
  g_record.gErrDescription = std::move(facts.description);
  g_record.gErrHelpFile = std::move(facts.help_file);
  g_record.gErrHelpContext = facts.help_context;
  g_record.gErrLastDllError = facts.system_error;
  g_record.gErrLine = facts.line;
  g_record.gErrSlip = std::move(facts.slip);
  g_record.gErrPreserved = true;
}

void RunSection(const Sections::Section& section, int actions) noexcept {
  if (!section) return;
  Guarded([&] {
    std::string lines;
    section(lines, actions);
    g_record.gErrText += lines;
  });
}

/// Head, the system's error and the sections, for a failure that no level has handled yet.
void ComposeHead(std::string_view trace, int actions) noexcept {
  g_record.gErrText.clear();
  Guarded([&] {
    const FailureFacts failure{.number = g_record.gErrNumber,
                               .description = g_record.gErrDescription,
                               .source = g_record.gErrSource};
    g_record.gErrText = ReportHead(failure, trace.substr(0, trace.find('(')), g_facts);
  });
  Guarded([] { g_record.gErrText += ApiErrorLine(g_record.gErrLastDllError); });
  RunSection(g_sections.database, actions);
  if ((actions & kWebSection) != 0) RunSection(g_sections.web, actions);
}

/// Makes the report the description, so that the next level adds to it.
void MarkPropagated() noexcept {
  Guarded([] {
    g_record.gErrSource = kPropagated;
    g_record.gErrDescription = std::move(g_record.gErrText);
  });
}

/// Adds the line of one level to the report.
void Compose(std::string_view trace, std::span<const Argument> values, int actions,
             std::string_view env_names, std::span<const Argument> env_values) noexcept {
  if (g_record.gErrSource == kPropagated) {
    g_record.gErrText = std::move(g_record.gErrDescription);
  } else {
    ComposeHead(trace, actions);
  }
  Guarded([&] { g_record.gErrText += CallStackLine(trace, values, g_record.gErrLine); });
  if (env_names.empty()) return;
  Guarded([&] { g_record.gErrText += EnvironmentLine(env_names, env_values); });
}

/// Says that a handler has nothing to handle.
void SetLostFailure() noexcept {
  Guarded([] {
    SetRecord({.number = ERR_GENERAL,
               .description = "ErrorIn: Error information was lost. "
                              "To fix: call ErrPreserve before doing anything in error handler."});
  });
}

}  // namespace

void SetReporter(Reporter* reporter) {
  g_reporter = reporter;
}

void SetFacts(SystemFacts* facts) {
  g_facts = facts;
}

void SetDeveloper(Prompts* prompts) {
  g_developer = prompts;
  gStopMode = {};
}

bool InDevelopmentEnvironment() {
  return g_developer != nullptr;
}

void SetSections(Sections sections) {
  g_sections = std::move(sections);
}

void ErrPreserve() noexcept {
  if (g_record.gErrPreserved || !std::current_exception()) return;
  try {
    SetRecord(FactsOf(std::current_exception()));
  } catch (...) {  // only memory can be short here; these texts need none
    g_record = Record();
    g_record.gErrNumber = kOutOfMemory;
    g_record.gErrDescription = "Out of memory";
    g_record.gErrPreserved = true;
  }
}

bool ErrMustStop() noexcept {
  ErrPreserve();
  const bool asks = InDevelopmentEnvironment() && g_record.gErrPreserved && !g_handling &&
                    !g_asking && !IsUserError(g_record.gErrNumber) && gStopMode != kNoStop;
  if (!asks) return false;
  // A further failure, while the question lets events run, finds the record free.
  Record stopped = std::exchange(g_record, Record());
  PromptAnswer answer = PromptAnswer::kNo;
  g_asking = true;
  Guarded([&] {
    const bool propagated = stopped.gErrSource == kPropagated;
    answer = g_developer->AskOrCancel("Stopped on Error",
                                      StopQuestion(stopped.gErrDescription, propagated),
                                      PromptIcon::kCritical);
  });
  g_asking = false;
  g_record = std::move(stopped);
  g_record.gErrPreserved = answer != PromptAnswer::kYes;
  if (answer == PromptAnswer::kCancel) gStopMode = kNoStop;
  return answer == PromptAnswer::kYes;
}

std::string ErrorIn(std::string_view pMethodName, std::span<const Argument> pArgs, int pActions,
                    std::string_view pEnvNames, std::span<const Argument> pEnvValues) {
  detail::Handle(pMethodName, pArgs, pActions, pEnvNames, pEnvValues);
  if ((pActions & kRaise) != 0) detail::Raise();
  return g_record.gErrSource == kPropagated ? g_record.gErrDescription : std::string();
}

void ShowErrorReport() noexcept {
  if (g_handling) return;
  // A further failure, while the reporter lets events run, finds the record free.
  const Record finished = std::exchange(g_record, Record());
  if (IsUserError(finished.gErrNumber)) return;
  if (g_reporter != nullptr) {
    g_reporter->ShowErrorReport(finished.gErrDescription, finished.gErrSlip);
  } else {
    std::fprintf(stderr, "%s\n", finished.gErrDescription.c_str());
  }
}

namespace detail {

void Handle(std::string_view trace, std::span<const Argument> values, int actions,
            std::string_view env_names, std::span<const Argument> env_values) noexcept {
  if (g_handling) return;
  g_handling = true;
  if (!g_record.gErrPreserved && !std::current_exception()) SetLostFailure();
  ErrPreserve();
  const bool compose = (actions & kCompose) != 0 && !IsUserError(g_record.gErrNumber);
  if (compose) Compose(trace, values, actions, env_names, env_values);
  RunSection(g_sections.transaction, actions);
  if (compose) MarkPropagated();
  g_record.gErrPreserved = false;
  g_handling = false;
}

void Raise() {
  if (g_handling && std::current_exception()) throw;
  throw Failure(FailureFacts{.number = g_record.gErrNumber,
                             .description = std::move(g_record.gErrDescription),
                             .source = std::move(g_record.gErrSource),
                             .help_file = std::move(g_record.gErrHelpFile),
                             .help_context = g_record.gErrHelpContext,
                             .slip = std::move(g_record.gErrSlip)});
}

}  // namespace detail
}  // namespace ErrTrace
