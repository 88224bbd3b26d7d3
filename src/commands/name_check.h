#pragma once

#include <optional>

#include "core/records.h"
#include "core/run_state.h"
#include "platform/clock.h"
#include "platform/services.h"
#include "rename/forecast.h"

/// Looks, in small steps after a preview, which of the new names a run would find taken. The rows
/// then tell it by `RunState::foretold`, and `RunState::names` counts them; no command goes by it.
class NameCheck {
 public:
  /// All outlive the check.
  NameCheck(const Records& records, RunState& state, FileSystem& files, Clock& clock)
      : records_(records), state_(state), files_(files), clock_(clock) {}
  NameCheck(const NameCheck&) = delete;
  NameCheck& operator=(const NameCheck&) = delete;
  ~NameCheck() { End(); }

  /// Begins with the first row, for a run with `output`; a check that was begun for the very same
  /// goes on. Only a name's most bytes are taken from `RunState::names`, so a preview has come to
  /// its end. The rows stay as they are until `End`.
  void Begin(const RunOutput& output);
  /// Forgets what was found.
  void End();

  /// More rows wait to be looked at.
  bool Waits() const { return forecast_ && !through_; }
  /// Looks at more of them, for some 8 ms. A failure ends the check and is told to nobody.
  void GoOn();

 private:
  /// What a forecast is made for.
  struct Question {
    RunOutput output;
    NumberingOptions numbering;
    std::size_t limit = 0;
    bool operator==(const Question&) const = default;
  };
  NameProblem Of(std::size_t record) const;

  const Records& records_;
  RunState& state_;
  FileSystem& files_;
  Clock& clock_;
  Question question_;
  std::optional<Forecast> forecast_;
  bool through_ = false;
};
