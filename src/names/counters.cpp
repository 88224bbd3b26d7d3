#include "names/counters.h"

#include <cstdint>
#include <limits>

#include "common/language.h"
#include "common/size_text.h"
#include "trace/failure.h"

namespace {

constexpr std::int32_t kLargest = std::numeric_limits<std::int32_t>::max();

bool StartsAgain(const CounterOptions& counter) {
  return counter.Reset == 1;
}

[[noreturn]] void FailCounting(std::int32_t start, const LocaleFacts& locale) {
  using namespace mLanguageGobals;
  throw Failure({.number = kOverflow,
                 .description = "Overflow",
                 .slip = std::string(kCounterFrom)
                             .append(mCommon::SizeCorrectView(start, 0, locale))
                             .append(kPasses)
                             .append(mCommon::SizeCorrectView(kLargest, 0, locale))
                             .append(kStartLower)});
}

}  // namespace

Counters::Counters(Constructor& constructor) {
  for (ConstrItem& item : constructor.ArrConstr) {
    if (item.ItemType == kCounter) items_.push_back(&item.counter);
  }
  for (CounterOptions* item : items_) item->Value = item->Start;
}

void Counters::StartGroup() {
  for (CounterOptions* item : items_) {
    if (StartsAgain(*item)) item->Value = item->Start;
  }
}

void Counters::Step(const LocaleFacts& locale) {
  for (CounterOptions* item : items_) {
    if (item->Value == kLargest) FailCounting(item->Start, locale);
    ++item->Value;
  }
}

bool Counters::StandAfter(std::size_t all, std::size_t in_group) {
  for (CounterOptions* item : items_) {
    const auto steps = static_cast<std::int64_t>(StartsAgain(*item) ? in_group : all);
    if (steps > std::int64_t{kLargest} - item->Start) return false;
    item->Value = static_cast<std::int32_t>(item->Start + steps);
  }
  return true;
}
