#pragma once

#include "platform/event_pump.h"

/// The queue of the running Qt application.
class QtEventPump : public EventPump {
 public:
  void LetEventsRun() override;
};
