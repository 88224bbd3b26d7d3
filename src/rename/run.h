#pragma once

#include <cstddef>
#include <string>

#include "core/pass.h"
#include "platform/files.h"
#include "rename/find_and_rename.h"
#include "rename/numbering.h"
#include "rename/output_folders.h"
#include "rename/result_rows.h"
#include "rename/run_output.h"

/// The pass that turns new names into file operations, row by row in scan order.
///
/// A file whose name is free takes it by one call; else it is looked what holds the name. A holder
/// that is itself still to be renamed is moved aside (see NameFreer); a name that stays taken is
/// numbered, or the row fails. Every row ends as "Done" or "Failed", the latter with its reason; a
/// cancel leaves the rest as they stand.
class RenameRun {
 public:
  RenameRun(Pass& pass, const RunOutput& output, RunReports& reports);

  /// Walks all rows. Ends early, with the answer false, when the user cancels, also in the middle
  /// of a long copy: that row then stays as it was.
  bool RunRename();

 private:
  /// One row's turn.
  struct Turn {
    std::size_t record = 0;
    std::string source;         ///< path of the file
    std::string target_folder;  ///< with closing separator
    std::string planned;        ///< the name that the preview planned, of one that was resolved
    bool resolved = false;      ///< a numbered name took the place of the planned one
    bool free = false;          ///< nothing held the new name at the last look
    int problem = 0;            ///< why it could not be renamed at once
  };
  void Count(std::size_t record);
  void ProcessRow(std::size_t record);
  void Begin(std::size_t record);
  int Process(Turn& turn);
  bool RenameAtOnce(Turn& turn);
  void ResolveConflict(Turn& turn);
  std::string CorrectedName(Turn& turn);
  bool CopyMoveFile(const Turn& turn, const std::string& to, CopyIdentities& copied);
  int DoOperation(const Turn& turn);
  void Fail(const Turn& turn, int problem);
  void Succeed(const Turn& turn);

  Pass& pass_;
  const OutputOptions& output_;
  const std::string& fdSourceFolder_;
  Records& records_;
  RunState& state_;
  FileSystem& files_;
  RunReports& reports_;
  Numbering numbering_;
  RunNameFreer freer_;
  OutputFolders folders_;
  Turn turn_;                ///< kept from row to row for the room of its texts, as is the next one
  std::string target_;       ///< path of the new name
  bool look_first_ = false;  ///< renaming at once was in vain for the row before
};
