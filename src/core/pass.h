#pragma once

#include <cstddef>
#include <cstdint>

#include "core/records.h"
#include "core/run_state.h"
#include "platform/services.h"

/// One pass over the rows: what it works on, and how it stays alive. Events run at told steps and
/// whenever 50 milliseconds have passed since they last did, and "Cancel" is asked for.
class Pass {
 public:
  /// Over `count` rows, 0 when that isn't known: by count, events run at every row of up to 300 and
  /// about 300 to 600 times for more.
  Pass(Records& its_records, RunState& its_state, const Services& its_services, std::size_t count);

  /// Called at row `i`, from 0 on; false when the pass is to end because the user cancelled.
  bool GoOnAt(std::size_t i);

  /// Called between the pieces of a long step: lets events run when they are due by time. False
  /// as above.
  bool GoOn();

  /// Lets events run now. False as above.
  bool LetEventsRun();

  Records& records;
  RunState& state;
  const Services& services;

 private:
  std::size_t step_;
  std::int64_t last_ms_;
};
