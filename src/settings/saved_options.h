#pragma once

#include <cstddef>
#include <limits>

#include "platform/settings_store.h"
#include "settings/options.h"

/// What the start made of the options; as made here, all were read.
struct OptionsAtStart {
  bool could_read = true;  ///< as the store told; else the controls hold nothing of what it holds
  std::size_t read = std::numeric_limits<std::size_t>::max();  ///< as ReadSavedOptions tells
  Options shown;                                               ///< what the controls held after it
};

/// Lays what is stored over `options`, which hold what the controls hold now, in the order of the
/// table. Of a group whose box is off, some options take their defaults and the rest stay as they
/// are. `read` is how many options are dealt with.
///
/// Raises Failure at the first value that isn't what it should be (kTypeMismatch, kOverflow,
/// kInvalidPropertyValue). What was read before stands in `options`, what comes after it is
/// untouched; so the caller takes `options` over in either case.
void ReadSavedOptions(SettingsStore& store, Options& options, std::size_t& read);

/// Stores the three save boxes, and each group whose box is on; the keys of the others stay as
/// they were. After a start with a bad value that key is stored like those before it, which mends
/// it; those behind it, never shown, only if they were changed since, and so are all after a start
/// that could not read the store. Does not flush.
void WriteSavedOptions(SettingsStore& store, const Options& options,
                       const OptionsAtStart& start = {});

/// Stores the numbering of conflicts, which changes in a dialog of its own. Does not flush.
void WriteConflictOptions(SettingsStore& store, const NumberingOptions& numbering);
