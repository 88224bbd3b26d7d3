#pragma once

#include <cstddef>
#include <vector>

#include "names/constructor.h"
#include "platform/services.h"

/// The counters among the elements, with their running values: one step a ticked file, in the order
/// in which the list stands.
class Counters {
 public:
  /// All at their start. `constructor` outlives this, with its elements unchanged.
  explicit Counters(Constructor& constructor);

  bool Empty() const { return items_.empty(); }

  /// A group begins: those that it is told to start again.
  void StartGroup();

  /// One ticked file more. Fails with kOverflow at the end of the range of a signed 32-bit integer.
  void Step(const LocaleFacts& locale);

  /// The values that so many steps lead to, `in_group` of them since the last group began; false
  /// when one is past that range.
  bool StandAfter(std::size_t all, std::size_t in_group);

 private:
  std::vector<CounterOptions*> items_;
};
