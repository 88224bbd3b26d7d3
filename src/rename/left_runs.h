#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "core/run_state.h"
#include "platform/files.h"
#include "platform/services.h"

/// The journals in `folder` (see JournalFolder) that may tell of a run that was cut off, the newest
/// first: that is the order in which they have to be put back. One look into the folder; nothing is
/// opened. Paths.
std::vector<std::string> LeftJournals(const std::string& folder);

/// What runs of a program that is gone have left of their files, and the way back. It is told by
/// their journal and by where each file is found to stand now. One journal tells all that was done
/// with one list: its runs and undos, and what an earlier putting back has done.
class LeftRun {
 public:
  /// What was under way when the journal ended, or came to its end last.
  enum class Work : std::uint8_t { kRun, kUndo, kPutBack };
  enum class Change : std::uint8_t { kRenamed, kMoved, kCopied };

  struct Facts {
    std::int64_t began = 0;     ///< when the first run began: seconds since 1970-01-01 00:00 UTC
    std::string source_folder;  ///< as the user chose it for the last run
    int output_mode = 0;        ///< of the last run; see settings/output_modes.h
    Work work = Work::kRun;
    bool cut_off = false;     ///< that did not come to its end
    bool incomplete = false;  ///< not all that was done could be written down
    std::size_t wanted = 0;   ///< files that the last run was to rename, copy or move
    /// Files that stand elsewhere now, or have a copy: what PutBack would take back. All counts
    /// together are those of Files.
    std::size_t renamed = 0, moved = 0, copied = 0;
  };

  /// One file that isn't as it was before the first run.
  struct File {
    std::string former;   ///< the path that PutBack gives it; of a copy, the path of its original
    std::string present;  ///< where it stands now, or should; of a copy, where the copy stands
    Change change;
    int problem = 0;  ///< why it could not be put back: errno or a FileProblem; 0: not tried
  };

  /// Reads the journal at that path and looks where its files stand. Null, and nothing is touched,
  /// when it isn't ours to put back: a living process writes it, it is another user's or
  /// machine's, what stands there is no journal or isn't sound; and when `go_on`, asked now and
  /// then, wants to stop. Another program can't take the journal while this object lives.
  static std::unique_ptr<LeftRun> Read(const std::string& journal, FileSystem& files,
                                       const GoOn& go_on);
  virtual ~LeftRun() = default;

  virtual const Facts& Told() const = 0;

  /// Up to `most` of the files that aren't back, in the order of the list; those that PutBack has
  /// failed with have their problem.
  virtual std::vector<File> Files(std::size_t most) const = 0;

  /// Brings the files back under their former names, deletes the copies that were made, and takes
  /// away folders that were made and are empty. Only the very files are moved, only copies deleted
  /// that nobody has written to and whose original stands, and nothing is replaced; what can't go
  /// back stays and is told by Files.
  ///
  /// Lives by `services` as a run does: lets events run, ends when `state.gCancelRequested` is set,
  /// and counts in `state.counts`: `passed` of `all` files so far, and `done` of them. False when
  /// it was cancelled. It is written into the same journal, so it can be cut off, and called again,
  /// here or at the next start. The journal goes when nothing is left to put back, and only then.
  virtual bool PutBack(const Services& services, RunState& state) = 0;

  /// Leaves the files as they are and deletes the journal; false when that can't be deleted.
  virtual bool Keep() = 0;
};
