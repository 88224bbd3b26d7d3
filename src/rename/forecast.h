#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "core/records.h"
#include "platform/files.h"
#include "rename/forecast_folders.h"
#include "rename/numbering.h"
#include "rename/output_folders.h"
#include "rename/row_table.h"
#include "rename/run_output.h"

/// Tells which names a run would find taken, before it. Walks the rows in the run's order and keeps
/// in mind what each would take and give up; all else is looked up on the disk, and nothing there
/// or in the rows is changed. What fails for another reason than its name is foretold as if it
/// didn't.
class Forecast {
 public:
  enum Verdict : std::uint8_t { kFits, kGetsNumber, kTakenFails, kCannotBe };

  /// `limit` is the most bytes of a name. The rows stay as they are for as long as this lives.
  Forecast(const Records& records, FileSystem& files, const RunOutput& output,
           const NumberingOptions& numbering, std::size_t limit);
  Forecast(const Forecast&) = delete;
  Forecast& operator=(const Forecast&) = delete;

  /// Walks on while `goes_on`, which is asked at every look; true when it is through.
  bool Go(const std::function<bool()>& goes_on);

  /// Of a row that the walk has passed; of any other kFits.
  Verdict Of(std::size_t record) const { return static_cast<Verdict>(said_[record] & kVerdict); }
  /// The rows before it have been passed.
  std::size_t Passed() const { return next_; }
  std::size_t Count(Verdict verdict) const { return counts_[verdict]; }

 private:
  static constexpr std::uint8_t kVerdict = 3, kDone = 4;
  static constexpr int kNone = ForecastFolders::kNone, kUnasked = -2;

  /// Where a name goes: its folder, and what stands there before the name because the path has no
  /// closing separator.
  struct Place {
    int folder = kNone;
    std::string prefix;
    bool ready = false;
  };
  /// One row's turn.
  struct Turn {
    std::size_t record;
    std::string name;
    std::uint64_t number = 0;  ///< in the name, when it was numbered
    bool free = false;         ///< the name was seen to be
  };
  /// Numbered names by hashes, and the first number that may be free.
  struct Untried {
    std::size_t exact;
    std::uint64_t number;
  };

  // The walk.
  bool IsPending(std::size_t record) const;
  Verdict Process(std::size_t record);
  void ResolveConflict(Turn& turn, const Place& place);
  bool StaysAtItsEntry(const Turn& turn, const Place& place);
  bool MovesHolders() const;
  std::optional<std::size_t> Holder(const FileRow& asker, std::string_view name);
  bool WantsAnotherName(std::size_t record);
  bool MakeWay(std::size_t record);
  Verdict Operate(const Turn& turn, const Place& place);
  void Leave(std::size_t record);

  // The folders that files are put into.
  Place PlaceOf(std::string_view path);
  const Place* TargetOf(const FileRow& row);
  bool MakeFolders(std::string_view bare);
  bool MakeFolder(std::string_view level);
  bool StandsInTheWay(int folder, std::string_view name);
  int FolderOf(const FileRow& row);

  // What would stand on the disk by now.
  bool Exists(int folder, std::string_view name);
  bool ExistsExactly(int folder, std::string_view name);
  bool MatchExists(int folder, std::string_view pattern);
  bool IsTaken(int folder, std::string_view name);
  bool IsGone(int folder, std::string_view name);
  bool HaveSources();
  std::string_view SourceName(std::size_t record) const;
  std::string TargetName(std::size_t record) const;
  NumberTexts Texts() const { return {numbering_.gNumberLeft, numbering_.gNumberRight}; }
  std::uint64_t FreeNumber(const Place& place, const NumberedNames& names);
  void Freed(int folder, std::string_view name);

  const Records& records_;
  FileSystem& files_;
  const RunOutput output_;
  const NumberingOptions numbering_;
  const std::size_t limit_;
  const bool keeps_source_;
  ForecastFolders folders_;
  const std::function<bool()>* goes_on_ = nullptr;
  bool again_ = false;  ///< the turn was given up and comes again

  std::size_t next_ = 0;
  std::size_t counts_[4] = {};
  std::vector<std::uint8_t> said_;  ///< by row
  bool any_left_ = false;           ///< a file has left its place
  RowTable targets_;                ///< done rows by what they took
  RowTable sources_;                ///< rows by the name that their file had before the runs
  std::size_t sources_known_ = 0;
  std::vector<std::size_t> former_;  ///< rows that stand elsewhere than where they were at first
  std::vector<std::pair<std::size_t, std::uint64_t>> numbers_;  ///< of rows that got one
  std::unordered_map<std::size_t, std::string> aside_;          ///< names of rows moved aside
  std::unordered_multimap<std::size_t, std::size_t> by_aside_;  ///< these rows by that
  std::unordered_map<std::size_t, Untried> untried_;            ///< by a name without letter case
  std::vector<Place> targets_of_;                               ///< by the folder of a row
  std::vector<int> folder_of_;                                  ///< by the same
};
