#pragma once

#include <functional>
#include <utility>

#include "platform/services.h"

/// The events of a pass that has something to do each time before they run.
class PumpWith : public EventPump {
 public:
  /// `events` outlives the pump.
  PumpWith(EventPump& events, std::function<void()> before)
      : events_(events), before_(std::move(before)) {}

  void LetEventsRun() override {
    before_();
    events_.LetEventsRun();
  }

 private:
  EventPump& events_;
  const std::function<void()> before_;
};
