#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>

#include "platform/settings_store.h"

/// What the main window's controls hold of the options that are kept between two runs, under the
/// names of the controls. As made here: the state of a first start.
struct SavedOptions {
  bool chSaveSourceFolderOptions = true;
  bool chSaveOutputFolderOptions = true;
  bool chSaveFileListOptions = true;

  std::string fdSourceFolder;
  bool chSubfolders = true;
  std::string fdIncludeMask;
  std::string fdExcludeMask;

  int cmbDestination = 0;
  std::string fdDestination;
  bool chDestinationSubfolders = true;

  bool chColumnPath = false;
  bool chColumnSize = false;
  bool chColumnType = false;
  bool chColumnDate = false;
  int cmbGroupBy = 1;

  std::int16_t gConflictAddNumber = 1;
  std::string gNumberLeft = "_{";
  std::string gNumberRight = "}";
};

/// What the start made of the options; as made here, all were read.
struct OptionsAtStart {
  bool could_read = true;  ///< as the store told; else the controls hold nothing of what it holds
  std::size_t read = std::numeric_limits<std::size_t>::max();  ///< as ReadSavedOptions tells
  SavedOptions shown;                                          ///< what the controls held after it
};

/// Lays what is stored over `options`, which hold what the controls hold now: the three save boxes,
/// then the source page, the output page and the file list, each only if its box is on (else it
/// falls back to "Include subfolders" on; to "Use source folder" and "Create subfolders" on; to
/// groups by path, and keeps the rest), then the numbering of conflicts. `read` is how many options
/// are dealt with.
///
/// Raises Failure at the first value that isn't what it should be (kTypeMismatch, kOverflow,
/// kInvalidPropertyValue). What was read before stands in `options`, what comes after it is
/// untouched; so the caller takes `options` over in either case.
void ReadSavedOptions(SettingsStore& store, SavedOptions& options, std::size_t& read);

/// Stores the three save boxes, and each group whose box is on; the keys of the others stay as
/// they were. After a start with a bad value that key is stored like those before it, which mends
/// it; those behind it, never shown, only if they were changed since, and so are all after a start
/// that could not read the store. Does not flush.
void WriteSavedOptions(SettingsStore& store, const SavedOptions& options,
                       const OptionsAtStart& start = {});

/// Stores the numbering of conflicts, which changes in a dialog of its own. Does not flush.
void WriteConflictOptions(SettingsStore& store, const SavedOptions& options);
