#pragma once

#include <string>
#include <utility>

#include "trace/err_trace.h"

/// What is handed to the reporter.
struct Reported {
  std::string report, slip;
};

/// Runs `body` as an event handler would and answers what is reported of its failure.
template <class Body>
Reported ReportOf(Body&& body) {
  struct : ErrTrace::Reporter {
    void ShowErrorReport(const std::string& report, const std::string& slip) noexcept override {
      reported = {report, slip};
    }
    Reported reported;
  } keeper;
  ErrTrace::SetReporter(&keeper);
  ErrTrace::top("Test", std::forward<Body>(body));
  ErrTrace::SetReporter(nullptr);
  return keeper.reported;
}

template <class Body>
std::string FailureReport(Body&& body) {
  return ReportOf(std::forward<Body>(body)).report;
}
