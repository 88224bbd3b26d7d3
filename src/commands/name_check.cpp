#include "commands/name_check.h"

#include <utility>

#include "trace/err_trace.h"

namespace {

constexpr std::int64_t kStepMs = 8;

}  // namespace

void NameCheck::Begin(const RunOutput& output) {
  Question question{output, state_.numbering, state_.names.limit};
  if (forecast_ && question == question_) return;
  End();
  question_ = std::move(question);
  forecast_.emplace(records_, files_, output, state_.numbering, state_.names.limit);
  state_.foretold = [this](std::size_t record) { return Of(record); };
}

void NameCheck::End() {
  if (Waits()) files_.LetFoldersGo();
  state_.foretold = nullptr;
  state_.names.taken = 0;
  forecast_.reset();
  through_ = false;
}

void NameCheck::GoOn() {
  if (!Waits()) return;
  const std::int64_t end = clock_.Milliseconds() + kStepMs;
  const bool went = ErrTrace::Quietly(
      [&] { through_ = forecast_->Go([&] { return clock_.Milliseconds() < end; }); });
  if (!went) return End();
  if (through_) files_.LetFoldersGo();
  const std::size_t taken =
      forecast_->Count(Forecast::kGetsNumber) + forecast_->Count(Forecast::kTakenFails);
  state_.names.taken = static_cast<std::int64_t>(taken);
}

/// A planned name that can't be is told by itself, which comes first.
NameProblem NameCheck::Of(std::size_t record) const {
  switch (forecast_->Of(record)) {
    case Forecast::kFits:
      return NameProblem::kNone;
    case Forecast::kGetsNumber:
      return NameProblem::kGetsNumber;
    case Forecast::kTakenFails:
    case Forecast::kCannotBe:
      break;
  }
  return NameProblem::kTakenFails;
}
