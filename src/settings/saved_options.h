#pragma once

#include <cstdint>
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

  bool operator==(const SavedOptions&) const = default;
};

/// Lays what is stored over `options`, which hold what the controls hold now: the three save boxes,
/// then the source page, the output page and the file list, each only if its box is on (else it
/// falls back to "Include subfolders" on; to "Use source folder" and "Create subfolders" on; to
/// groups by path, and keeps the rest), then the numbering of conflicts.
///
/// Raises Failure at the first value that isn't what it should be (kTypeMismatch, kOverflow,
/// kInvalidPropertyValue). What was read before stands in `options`, what comes after it is
/// untouched; so the caller takes `options` over in either case.
void ReadSavedOptions(SettingsStore& store, SavedOptions& options);

/// Stores the three save boxes, and each group whose box is on; the keys of the others stay as
/// they were. Does not flush.
void WriteSavedOptions(SettingsStore& store, const SavedOptions& options);

/// Stores the numbering of conflicts, which changes in a dialog of its own. Does not flush.
void WriteConflictOptions(SettingsStore& store, const SavedOptions& options);
