#pragma once

#include <string>
#include <utility>

#include "trace/err_trace.h"

/// Runs `body` as an event handler would and answers the report of its failure, or "".
template <class Body>
std::string FailureReport(Body&& body) {
  class Keeper : public ErrTrace::Reporter {
   public:
    void ShowErrorReport(const std::string& finished) noexcept override { report = finished; }
    std::string report;
  };
  Keeper keeper;
  ErrTrace::SetReporter(&keeper);
  ErrTrace::top("Test", std::forward<Body>(body));
  ErrTrace::SetReporter(nullptr);
  return keeper.report;
}
