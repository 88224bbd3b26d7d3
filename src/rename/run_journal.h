#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

#include "platform/journal_file.h"

/// What is to be known of a pass at the next start.
struct JournaledPass {
  enum Work : std::uint8_t { kRun, kUndo, kPutBack } work = kRun;
  int output_mode = 0;
  std::string source_folder;
  std::size_t wanted = 0;  ///< files that it is to rename, copy or move
};

/// Writes down what runs and undos do with the files of one list, so that it can be taken back at
/// the next start should the program be ended amid of it. It lives as long as the rows can be
/// undone. No run fails or waits for it: what can't be written is left out, and Problem tells.
class RunJournal {
 public:
  /// Keeps journals in `folder` from now on; "", as at first: keeps none.
  void KeepIn(std::string folder) { folder_ = std::move(folder); }

  /// To be told before a pass begins and when it has come to an end by itself. The file is made
  /// when the pass first changes something.
  void Begin(const JournaledPass& pass);
  void End();

  /// Has what was written on the disk soon; no more than a few times a second.
  void Sync();

  /// The rows can't be undone any more, or have been: the file goes.
  void Remove();

  /// Lets go of the file and leaves it for the next start.
  void Leave();

  /// Why there is no whole journal of what was done: errno; 0 while there is.
  int Problem() const { return problem_; }

 private:
  std::string folder_;
  std::unique_ptr<JournalFile> file_;
  int problem_ = 0;
};
