#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "common/language.h"
#include "core/name_problem.h"
#include "settings/options.h"

/// What the panes of the status bar show. The passes write it; the window shows it whenever
/// events run.
struct StatusPanes {
  std::string paneStatus;        ///< "", "Preview " or "Renaming "
  bool progressVisible = false;  ///< of paneProgress; its Min is 0
  std::int64_t progressMax = 0;
  std::int64_t progressValue = 0;
  std::string paneTotal{mLanguageGobals::kTotalOfNone};
  bool totalStretched = true;  ///< takes the rest of the bar; not so while busy
  std::string paneResult;      ///< how far a pass is, then what it did
};

/// The files that a pass has come by, of those of the list, and those whose operation it has done.
struct FileCounts {
  std::int64_t passed = 0;
  std::int64_t all = 0;
  std::int64_t done = 0;
};

/// The state that the commands share, for the whole life of the program.
struct RunState {
  bool gCancelRequested = false;  ///< the user pressed "Cancel"; every long pass asks for it
  bool gPreviewStale = false;     ///< names or checks changed since the last finished preview
  bool previewing = false;        ///< new names are being made
  std::vector<std::int32_t> gRowCounted;  ///< per record 1 when it is counted on the progress bar
  std::int32_t gFileCount = 0;            ///< files that the current scan has accepted
  std::string gCheckMask = "*.*";         ///< by which check boxes were set last
  FileCounts counts;                      ///< of the running pass, or the last one
  NameTally names;                        ///< of the last preview, if that came to its end
  /// What a run would find of the name of a record; null while nobody has looked.
  std::function<NameProblem(std::size_t record)> foretold;
  NumberingOptions numbering;
  StatusPanes panes;

  /// The new names are not those that the options give now, and none are being made.
  bool NamesAreDrafts() const { return !previewing && (gPreviewStale || names.limit == 0); }
};
