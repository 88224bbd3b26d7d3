#pragma once

/// The window system's queue of events.
class EventPump {
 public:
  virtual ~EventPump() = default;

  /// Handles all events that wait, and returns when none is left.
  virtual void LetEventsRun() = 0;
};
