#include "core/pass.h"

#include <algorithm>

#include "platform/clock.h"

namespace {
constexpr std::size_t kPartsOfAPass = 300;
constexpr std::int64_t kLongestSilenceMs = 50;
}  // namespace

Pass::Pass(Records& its_records, RunState& its_state, const Services& its_services,
           std::size_t count)
    : records(its_records),
      state(its_state),
      services(its_services),
      step_(std::max<std::size_t>(1, count / kPartsOfAPass)),
      last_ms_(services.clock.Milliseconds()) {}

bool Pass::GoOnAt(std::size_t i) {
  return i % step_ == 0 ? LetEventsRun() : GoOn();
}

bool Pass::GoOn() {
  if (services.clock.Milliseconds() - last_ms_ >= kLongestSilenceMs) return LetEventsRun();
  return !state.gCancelRequested;
}

bool Pass::LetEventsRun() {
  services.events.LetEventsRun();
  services.files.LookAnew();
  last_ms_ = services.clock.Milliseconds();
  return !state.gCancelRequested;
}
