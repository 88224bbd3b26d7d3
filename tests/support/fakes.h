#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/clock.h"
#include "platform/event_pump.h"
#include "platform/prompts.h"
#include "platform/type_names.h"

/// A clock that moves only when it is told to, or by a step at each look.
class FakeClock : public Clock {
 public:
  std::int64_t Milliseconds() override { return now_ms += step_ms; }
  LocalTime Now() override { return {2024, 3, 9, 7, 5, 2}; }
  std::optional<LocalTime> ToLocal(std::int64_t unix_seconds) override {
    if (unix_seconds < 0) return std::nullopt;
    return LocalTime{2000 + static_cast<int>(unix_seconds), 1, 2, 3, 4, 5};
  }

  std::int64_t now_ms = 0;
  std::int64_t step_ms = 0;
};

/// Counts how often events ran, and does what a user would do at that moment.
class FakeEvents : public EventPump {
 public:
  void LetEventsRun() override {
    ++count;
    if (on_events) on_events();
  }

  int count = 0;
  std::function<void()> on_events;
};

class FakePrompts : public Prompts {
 public:
  void Tell(std::string_view message, PromptIcon icon) override {
    told.emplace_back(message);
    icons += icon == PromptIcon::kCritical ? 'x' : '!';
  }

  std::vector<std::string> told;
  std::string icons;  ///< of each, '!' an exclamation mark, 'x' a stop sign
};

/// Knows text files only.
class FakeTypeNames : public TypeNames {
 public:
  std::string TypeName(std::string_view extension) override {
    ++asked;
    return extension == ".txt" ? "Text file" : "";
  }

  int asked = 0;
};
