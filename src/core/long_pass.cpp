#include "core/long_pass.h"

#include <algorithm>

namespace {
constexpr std::size_t kPartsOfAPass = 300;
constexpr std::int64_t kLongestSilenceMs = 50;
}  // namespace

LongPass::LongPass(std::size_t count, RunState& state, EventPump& events, Clock& clock)
    : state_(state),
      events_(events),
      clock_(clock),
      step_(std::max<std::size_t>(1, count / kPartsOfAPass)),
      last_ms_(clock.Milliseconds()) {}

bool LongPass::GoOnAt(std::size_t i) {
  return i % step_ == 0 ? LetEventsRun() : GoOn();
}

bool LongPass::GoOn() {
  if (clock_.Milliseconds() - last_ms_ >= kLongestSilenceMs) return LetEventsRun();
  return !state_.gCancelRequested;
}

bool LongPass::LetEventsRun() {
  events_.LetEventsRun();
  last_ms_ = clock_.Milliseconds();
  return !state_.gCancelRequested;
}
