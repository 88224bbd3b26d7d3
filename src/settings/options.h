#pragma once

#include <cstdint>
#include <string>

#include "settings/output_modes.h"

// What the user can choose, under the names of the controls that show it. As made here: the state
// of a first start. How each is stored: settings/option_table.h.

/// Which groups of options are remembered: the page "Settings".
struct SaveOptions {
  bool chSaveSourceFolderOptions = true;
  bool chSaveOutputFolderOptions = true;
  bool chSaveFileListOptions = true;
};

/// Where to look for files, and which to take: the page "Source folder".
struct SourceOptions {
  std::string fdSourceFolder;
  std::string fdIncludeMask;  ///< blanks only takes every file
  std::string fdExcludeMask;  ///< blanks only leaves out none; wins over the include mask
  bool chSubfolders = true;
};

/// Where a run puts the files: the page "Output folder".
struct OutputOptions {
  int cmbDestination = kUseSourceFolder;
  std::string fdDestination;  ///< used as it stands, so with its closing separator
  bool chDestinationSubfolders = true;
  bool operator==(const OutputOptions&) const = default;
};

/// The controls above the list of files.
struct ListOptions {
  bool chColumnPath = false;
  bool chColumnSize = false;
  bool chColumnType = false;
  bool chColumnDate = false;
  int cmbGroupBy = 1;  ///< "Path"
};

/// How a taken name is numbered: the dialog "Conflicts".
struct NumberingOptions {
  std::int16_t gConflictAddNumber = 1;  ///< 1: a taken name is replaced by a numbered one
  std::string gNumberLeft = "_{";       ///< stands between the name and its number
  std::string gNumberRight = "}";       ///< stands behind the number
  bool operator==(const NumberingOptions&) const = default;
};

/// All of them, in the order in which they are stored.
struct Options {
  SaveOptions save;
  SourceOptions source;
  OutputOptions output;
  ListOptions list;
  NumberingOptions numbering;
};
