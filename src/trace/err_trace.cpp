#include "trace/err_trace.h"

#include <cstdio>
#include <exception>
#include <new>

namespace ErrTrace {
namespace {

/// The failure in flight: one record is enough, because the program runs on one thread.
struct Record {
  std::int32_t number = 0;
  std::string description;
  std::string report;  ///< empty while no procedure has added its line
};

Record g_record;
Reporter* g_reporter = nullptr;

void TakeException(std::exception_ptr in_flight) {
  try {
    std::rethrow_exception(in_flight);
  } catch (const Failure& failure) {
    g_record.number = failure.Number();
    g_record.description = failure.Description();
  } catch (const std::bad_alloc&) {
    g_record.number = kOutOfMemory;
    g_record.description = "Out of memory";
  } catch (const std::exception& other) {
    g_record.number = kInternalError;
    g_record.description = other.what();
  } catch (...) {
    g_record.number = kInternalError;
    g_record.description = "Internal error";
  }
}

}  // namespace

void SetReporter(Reporter* reporter) {
  g_reporter = reporter;
}

std::string ValueText(std::string_view value) {
  return "'" + std::string(value) + "'";
}
std::string ValueText(long long value) {
  return std::to_string(value);
}

std::string ValueText(double value) {
  char buffer[32];
  std::snprintf(buffer, sizeof buffer, "%.15g", value);
  return buffer;
}

namespace detail {

void AddLine(std::string_view trace, const std::string* values, std::size_t count) noexcept {
  try {
    if (g_record.report.empty()) {
      TakeException(std::current_exception());
      g_record.report =
          g_record.description + "\r\n  Number: " + std::to_string(g_record.number) + "\r\n";
    }
    const std::size_t bracket = trace.find('(');
    std::string line = "  Call Stack: " + std::string(trace.substr(0, bracket)) + "(";
    std::string_view names = bracket == trace.npos ? "" : trace.substr(bracket + 1);
    for (std::size_t i = 0; i < count; ++i) {
      const std::size_t end = names.find_first_of(",)");
      line += (i == 0 ? "" : ", ") + std::string(names.substr(0, end)) + "=" + values[i];
      names.remove_prefix(end + 1);
    }
    g_record.report += line + ")\r\n";
  } catch (...) {
    // A second failure must not hide the first one; the line is lost, the failure climbs on.
  }
}

void RaiseAgain() {
  throw Failure(g_record.number, g_record.description);
}

void Report() noexcept {
  Record finished;
  std::swap(finished, g_record);
  if (g_reporter) {
    g_reporter->ShowErrorReport(finished.report);
  } else {
    std::fprintf(stderr, "%s", finished.report.c_str());
  }
}

}  // namespace detail
}  // namespace ErrTrace
