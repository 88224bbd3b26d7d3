#include "names/drafts.h"

#include "names/counters.h"
#include "names/name_composer.h"
#include "trace/err_trace.h"

struct Drafts::Taken {
  Taken(const Constructor& constructor, Clock& clock, const LocaleFacts& locale)
      : given(constructor), composer(counted, clock, locale) {}

  const Constructor given;
  Constructor counted = given;
  Counters counters{counted};
  NameComposer composer;
};

Drafts::Drafts(Grid& grid, const Constructor& constructor, Clock& clock, const LocaleFacts& locale)
    : grid_(grid), constructor_(constructor), clock_(clock), locale_(locale) {}

Drafts::~Drafts() = default;

std::optional<std::string_view> Drafts::NameOf(std::size_t row) {
  if (constructor_.ArrConstr.empty() || grid_.IsGroupRow(row)) return std::nullopt;
  const Records& records = grid_.AllRecords();
  const FileRow& file = records[grid_.RecordOf(row)];
  if (!IsToBeNamed(file)) return std::nullopt;
  if (taken_ == nullptr || taken_->given != constructor_) {
    taken_ = std::make_unique<Taken>(constructor_, clock_, locale_);
  }
  std::optional<std::string_view> name;
  ErrTrace::Quietly([&] {
    if (CountTo(row)) name = taken_->composer.Compose(SourceOf(file, records));
  });
  return name;
}

bool Drafts::CountTo(std::size_t row) {
  if (taken_->counters.Empty()) return true;
  const TickTotals::Above ticked = grid_.Ticks().AboveRow(row);
  return taken_->counters.StandAfter(ticked.all, ticked.in_group);
}
