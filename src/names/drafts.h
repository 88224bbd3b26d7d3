#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string_view>

#include "filelist/grid.h"
#include "names/constructor.h"
#include "platform/clock.h"
#include "platform/services.h"

/// What the preview would give, for single rows and at any time: the names that are shown before
/// they are made. Stores nothing in the rows or the elements; sees by itself when these have
/// changed.
class Drafts {
 public:
  /// All of them outlive the drafts.
  Drafts(Grid& grid, const Constructor& constructor, Clock& clock, const LocaleFacts& locale);
  ~Drafts();

  /// The new name that a preview would store in a displayed row now; valid until the next call.
  /// None for a row that it would give none, and where making it fails.
  std::optional<std::string_view> NameOf(std::size_t row);

 private:
  struct Taken;
  bool CountTo(std::size_t row);

  Grid& grid_;
  const Constructor& constructor_;
  Clock& clock_;
  const LocaleFacts& locale_;
  std::unique_ptr<Taken> taken_;  ///< the elements as they stood at the last call
};
