#include "rename/forecast.h"

#include <algorithm>

#include "common/path_text.h"
#include "rename/holders.h"

namespace {

constexpr char kSeparator = kNative.separator;

bool IsWay(std::string_view name) {
  return name.empty() || name == "." || name == "..";
}

/// The name that undo gives back.
std::string_view Former(const FileRow& row) {
  return row.Rollback().empty() ? std::string_view(row.sourceFileName) : row.Rollback();
}

}  // namespace

Forecast::Forecast(const Records& records, FileSystem& files, const RunOutput& output,
                   const NumberingOptions& numbering, std::size_t limit)
    : records_(records),
      files_(files),
      output_(output),
      numbering_(numbering),
      limit_(limit),
      keeps_source_(KeepsSource(output.chosen.cmbDestination)),
      folders_(files),
      said_(records.Count()),
      targets_of_(records.FolderCount()),
      folder_of_(records.FolderCount(), kUnasked) {
  targets_.Reserve(records.Count(), records.Count());
}

bool Forecast::Go(const std::function<bool()>& goes_on) {
  goes_on_ = &goes_on;
  const bool has_mode = IsOutputMode(output_.chosen.cmbDestination);
  while (next_ < records_.Count()) {
    again_ = false;
    const Verdict verdict = has_mode && IsPending(next_) ? Process(next_) : kFits;
    if (again_) return false;
    said_[next_] |= verdict;
    ++counts_[verdict];
    ++next_;
    if (!goes_on()) break;
  }
  return next_ == records_.Count();
}

/// A row that failed is still to be renamed.
bool Forecast::IsPending(std::size_t record) const {
  const FileRow& row = records_[record];
  return row.checked && row.RowTag != 1 && (said_[record] & kDone) == 0;
}

Forecast::Verdict Forecast::Process(std::size_t record) {
  const FileRow& row = records_[record];
  Turn turn{record, row.newFileName};
  if (turn.name.empty() || !StaysInItsFolder(turn.name)) return kCannotBe;
  const Place* place = TargetOf(row);
  const std::size_t before = place == nullptr ? 0 : place->prefix.size();
  if (before + turn.name.size() > limit_) return kCannotBe;
  if (place == nullptr || place->folder == kNone || again_) return kFits;
  ResolveConflict(turn, *place);
  return again_ ? kFits : Operate(turn, *place);
}

void Forecast::ResolveConflict(Turn& turn, const Place& place) {
  turn.free = !Exists(place.folder, place.prefix + turn.name);
  if (turn.free || again_) return;
  if (StaysAtItsEntry(turn, place)) return;
  if (MovesHolders()) {
    const auto holder = Holder(records_[turn.record], turn.name);
    if (again_ || (holder && MakeWay(*holder)) || again_) return;
  }
  if (numbering_.gConflictAddNumber != 1) return;
  const NumberedNames names = ConflictNames(turn.name, Texts());
  turn.number = FreeNumber(place, names);
  turn.name = names.head + std::to_string(turn.number) + names.tail;
  turn.free = true;
}

bool Forecast::StaysAtItsEntry(const Turn& turn, const Place& place) {
  return !keeps_source_ && FolderOf(records_[turn.record]) == place.folder &&
         folders_.AreOne(place.folder, SourceName(turn.record), place.prefix + turn.name);
}

bool Forecast::MovesHolders() const {
  const OutputOptions& chosen = output_.chosen;
  return !AsksForFolder(chosen.cmbDestination) ||
         (!keeps_source_ && output_.fdSourceFolder == chosen.fdDestination);
}

/// The first row that has the name, else one whose name is the same but for letter case.
std::optional<std::size_t> Forecast::Holder(const FileRow& asker, std::string_view name) {
  if (!HaveSources()) return std::nullopt;
  const OutputOptions& chosen = output_.chosen;
  const bool own_folder = !AsksForFolder(chosen.cmbDestination) || chosen.chDestinationSubfolders;
  const std::string& path = own_folder ? records_.Path(asker) : chosen.fdDestination;
  const int folder = PlaceOf(path).folder;
  const std::size_t key = HolderKey(static_cast<std::size_t>(folder), name);
  std::vector<std::size_t> candidates;
  sources_.Any(key, [&](std::size_t record) {
    if (IsPending(record) && records_.Path(records_[record]) == path) candidates.push_back(record);
    return false;
  });
  const auto [begin, end] = by_aside_.equal_range(key);
  for (auto one = begin; one != end; ++one) {
    if (records_.Path(records_[one->second]) == path) candidates.push_back(one->second);
  }
  std::sort(candidates.begin(), candidates.end());
  for (const bool exact : {true, false}) {
    for (const std::size_t record : candidates) {
      const std::string_view source = SourceName(record);
      const bool holds = exact ? source == name : folders_.AreOne(folder, source, name);
      if (holds && WantsAnotherName(record)) return record;
    }
  }
  return std::nullopt;
}

bool Forecast::WantsAnotherName(std::size_t record) {
  const FileRow& row = records_[record];
  return !StaysInItsFolder(row.newFileName) ||
         !folders_.AreOne(FolderOf(row), SourceName(record), row.newFileName);
}

bool Forecast::MakeWay(std::size_t record) {
  const FileRow& row = records_[record];
  const std::string name(SourceName(record));
  const Place place{FolderOf(row), {}, true};
  for (const NumberTexts& texts : {Texts(), kSafeNumberTexts}) {
    for (const NumberedNames& names : AsideNames(records_.Path(row), name, texts)) {
      const std::uint64_t number = FreeNumber(place, names);
      if (again_) return false;
      if (number == 0) continue;
      Leave(record);
      const std::string& aside = aside_[record] = names.head + std::to_string(number) + names.tail;
      by_aside_.emplace(HolderKey(static_cast<std::size_t>(place.folder), aside), record);
      return true;
    }
  }
  return false;
}

Forecast::Verdict Forecast::Operate(const Turn& turn, const Place& place) {
  const std::string name = place.prefix + turn.name;
  if (!StaysInItsFolder(name) || IsWay(name) || name.size() > limit_) return kTakenFails;
  if (!turn.free && !StaysAtItsEntry(turn, place) && ExistsExactly(place.folder, name)) {
    return again_ ? kFits : kTakenFails;
  }
  if (again_) return kFits;
  if (!keeps_source_) Leave(turn.record);
  targets_.Add(HolderKey(static_cast<std::size_t>(place.folder), name), turn.record);
  said_[turn.record] |= kDone;
  if (turn.number == 0) return kFits;
  numbers_.emplace_back(turn.record, turn.number);
  return kGetsNumber;
}

/// The file goes from where it stands.
void Forecast::Leave(std::size_t record) {
  const int folder = FolderOf(records_[record]);
  const auto aside = aside_.find(record);
  Freed(folder, SourceName(record));
  any_left_ = true;
  if (aside == aside_.end()) return;
  const auto key = HolderKey(static_cast<std::size_t>(folder), aside->second);
  const auto [begin, end] = by_aside_.equal_range(key);
  by_aside_.erase(std::find_if(begin, end, [&](const auto& one) { return one.second == record; }));
  aside_.erase(aside);
}

// The folders that files are put into.

int Forecast::FolderOf(const FileRow& row) {
  int& folder = folder_of_[row.folder];
  if (folder == kUnasked) folder = folders_.Of(records_.Path(row));
  return folder;
}

Forecast::Place Forecast::PlaceOf(std::string_view path) {
  const std::size_t at = path.rfind(kSeparator) + 1;
  return {folders_.Of(path.substr(0, at)), std::string(path.substr(at)), false};
}

/// Nothing when the run puts no file there.
const Forecast::Place* Forecast::TargetOf(const FileRow& row) {
  Place& place = targets_of_[row.folder];
  if (place.ready) return &place;
  const OutputOptions& chosen = output_.chosen;
  if (!AsksForFolder(chosen.cmbDestination)) {
    place = {FolderOf(row), {}, true};
    return &place;
  }
  const std::string text = OutputText(records_, row, output_);
  const std::string_view bare = mMain::GetPathWithNoSlash(text);
  if (!mMain::IsAbsolutePath(text) || !MakeFolders(bare) || again_) return nullptr;
  place = PlaceOf(text);
  place.ready = folders_.Of(bare) != kNone;  // what is missing is tried again
  return &place;
}

/// False where undo needs the name of a level.
bool Forecast::MakeFolders(std::string_view bare) {
  for (std::size_t end = bare.find(kSeparator, 1); !again_; end = bare.find(kSeparator, end + 1)) {
    if (!MakeFolder(bare.substr(0, end))) return false;
    if (end == bare.npos) break;
  }
  return true;
}

bool Forecast::MakeFolder(std::string_view level) {
  const Place parent = PlaceOf(level);
  const std::string& name = parent.prefix;
  if (parent.folder == kNone || IsWay(name) || name.size() > limit_) return true;
  if (ExistsExactly(parent.folder, name) || again_) return true;
  if (StandsInTheWay(parent.folder, name)) return false;
  if (!again_) folders_.Make(parent.folder, name);
  return true;
}

bool Forecast::StandsInTheWay(int folder, std::string_view name) {
  if (!HaveSources()) return false;
  const auto is_needed = [&](std::size_t record) {
    const FileRow& row = records_[record];
    const bool undone =
        row.TakesPartInUndo() || (said_[record] & kDone) != 0 || aside_.contains(record);
    return undone && FolderOf(row) == folder && folders_.AreOne(folder, Former(row), name);
  };
  return sources_.Any(HolderKey(static_cast<std::size_t>(folder), name), is_needed) ||
         std::any_of(former_.begin(), former_.end(), is_needed);
}

/// Makes the table of what stood where, piece by piece; the turn that needs it comes again.
bool Forecast::HaveSources() {
  if (sources_known_ == 0) sources_.Reserve(records_.Count(), records_.Count());
  while (sources_known_ < records_.Count()) {
    const std::size_t record = sources_known_++;
    const FileRow& row = records_[record];
    const bool is_former = row.RowTag == 1;
    const std::string_view name = is_former ? Former(row) : row.sourceFileName;
    sources_.Add(HolderKey(static_cast<std::size_t>(FolderOf(row)), name), record);
    if (!is_former && Former(row) != name) former_.push_back(record);
    if (!(*goes_on_)()) again_ = true;
    if (again_) return false;
  }
  return true;
}
