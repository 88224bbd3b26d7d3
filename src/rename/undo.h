#pragma once

#include <cstddef>
#include <string>

#include "core/pass.h"
#include "platform/files.h"
#include "rename/find_and_rename.h"
#include "rename/numbering.h"
#include "rename/result_rows.h"
#include "rename/row_places.h"

/// The pass that takes runs back, row by row in the order of the run, each by what the row itself
/// holds: a renamed or moved file goes back under its former name; a copy is deleted if it is still
/// the very file that the run made, and its original still there. Folders that the runs made go
/// when they are empty.
///
/// Collisions are solved as in the run: whichever file of another row stands under a former name is
/// moved aside first. A row whose operation fails keeps its state and is told in the reports. After
/// runs without failures an undo brings everything back.
class UndoRun {
 public:
  UndoRun(Pass& pass, RunReports& reports);

  /// Walks all rows. Ends early, with the answer false, when the user cancels; the next undo then
  /// goes on with the rows still done.
  bool Undo();

 private:
  void CountDown(std::size_t record);
  void UndoRow(std::size_t record);
  bool TakeBack(std::size_t record);
  bool TakeBackDone(std::size_t record);
  bool DeleteCopy(const FileRow& row);
  bool MoveBack(std::size_t record, RowFile file);
  bool Return(std::size_t record, const std::string& present, const std::string& former);
  bool RemoveMadeFolders();

  Pass& pass_;
  Records& records_;
  RunState& state_;
  FileSystem& files_;
  RunReports& reports_;
  Numbering numbering_;
  UndoNameFreer freer_;
  int problem_ = 0;          ///< of the last row that could not be taken back
  bool look_first_ = false;  ///< renaming at once was in vain for the row before
};

/// Drops what undo needs from every row, without touching a file: the run can't be taken back.
void EmptyRollback(Records& records);
