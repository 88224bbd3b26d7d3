#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>

#include "core/run_state.h"
#include "platform/clock.h"
#include "platform/services.h"

/// How a long pass stays alive: events run at told steps and whenever 50 milliseconds have passed
/// since they last did, and "Cancel" is asked for.
class LongPass {
 public:
  /// A pass over `count` rows: events run about 300 to 600 times, whatever the count.
  LongPass(std::size_t count, RunState& state, EventPump& events, Clock& clock);

  /// Called at row `i`, from 0 on; false when the pass is to end because the user cancelled.
  bool GoOnAt(std::size_t i);

  /// Called between the pieces of a long step: lets events run when they are due by time. False
  /// as above.
  bool GoOn();

  /// Lets events run now. False as above.
  bool LetEventsRun();

 private:
  RunState& state_;
  EventPump& events_;
  Clock& clock_;
  std::size_t step_;
  std::int64_t last_ms_;
};
