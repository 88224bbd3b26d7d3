#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "core/long_pass.h"
#include "core/records.h"
#include "core/run_state.h"
#include "platform/clock.h"
#include "platform/event_pump.h"
#include "platform/files.h"
#include "rename/find_and_rename.h"
#include "rename/numbering.h"
#include "rename/output_options.h"
#include "rename/result_rows.h"

/// The pass that takes a run back, row by row in the order of the run, each by the output mode that
/// the row itself holds: a renamed or moved file goes back under its former name, a copy is
/// deleted if it is still the very file that the run made.
///
/// Collisions are solved as in the run: the holder of a former name, when it is a done row's file,
/// is moved aside first. A row whose operation fails keeps its state and is told in the reports.
class UndoRun {
 public:
  /// Of `output` only the choice itself is read, not where the files went.
  UndoRun(const OutputOptions& output, Records& records, RunState& state, FileSystem& files,
          EventPump& events, Clock& clock, RunReports& reports);

  /// Walks all rows. Ends early with `gCancelRequested` set when the user cancels; called again
  /// after that, it goes on with the rows still done.
  void Undo();

 private:
  void CountDown(std::size_t record);
  void UndoRow(std::size_t record);
  bool TakeBack(const FileRow& row);
  bool TakeBackAside(const FileRow& row);
  bool TakeBackRename(const FileRow& row);
  bool TakeBackCopy(const FileRow& row);
  bool TakeBackMove(const FileRow& row);
  bool MoveBack(const std::string& folder, const std::string& present, bool free_former,
                const FileRow& row);
  bool Move(const std::string& from, const std::string& to);
  void Restore(std::size_t record);

  Records& records_;
  RunState& state_;
  FileSystem& files_;
  RunReports& reports_;
  LongPass pass_;
  Numbering numbering_;
  NameFreer freer_;
};

/// Drops what undo needs from every row, without touching a file: the run can't be taken back.
void EmptyRollback(Records& records);
