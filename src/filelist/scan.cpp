#include "filelist/scan.h"

#include <cerrno>
#include <charconv>
#include <iterator>
#include <optional>

#include "common/language.h"
#include "common/natural_order.h"
#include "common/path_text.h"
#include "core/text_sort.h"
#include "platform/text.h"
#include "trace/err_trace.h"

namespace mScanCD {
namespace {

constexpr std::int32_t kFilesBetweenEvents = 97;
constexpr std::string_view kTotal = "Total ";

}  // namespace

FileDate SysToVBTime(Clock& clock, std::int64_t modified_ns) {
  return ErrTrace::inner("mScanCD.SysToVBTime(ft)", ErrTrace::args(modified_ns), [&]() -> FileDate {
    constexpr std::int64_t kSecond = 1'000'000'000;
    const std::int64_t seconds = modified_ns / kSecond - (modified_ns % kSecond < 0 ? 1 : 0);
    const std::optional<LocalTime> at = clock.ToLocal(seconds);
    // The text has four digits for the year; a file system may hold any.
    if (!at || at->year < 1 || at->year > 9999) return {};
    return {at->year, at->month, at->day, at->hour, at->minute, at->second};
  });
}

Scan::Scan(Pass& pass, const SourceOptions& options, FileTypes& types)
    : subfolders_(options.chSubfolders),
      include_all_(text::Trim(options.fdIncludeMask).empty()),
      exclude_none_(text::Trim(options.fdExcludeMask).empty()),
      include_(options.fdIncludeMask, mLanguageGobals::kTheIncludeMask),
      exclude_(options.fdExcludeMask, mLanguageGobals::kTheExcludeMask),
      pass_(pass),
      records_(pass.records),
      state_(pass.state),
      files_(pass.services.files),
      types_(types) {}

void Scan::ShowDir3_FillPreview(std::string_view pParentName, std::string_view sParentPath) {
  FillFrom(pParentName, sParentPath, true);
}

void Scan::FillFrom(std::string_view pParentName, std::string_view sParentPath, bool is_root) {
  ErrTrace::inner(
      "mScanCD.ShowDir3_FillPreview(pParentName,sParentPath)",
      ErrTrace::args(pParentName, sParentPath), [&] {
        const std::size_t name_start = sParentPath.rfind(kNative.separator) + 1;  // npos + 1 is 0
        const std::string folder(name_start == 0 ? "./" : sParentPath.substr(0, name_start));
        const std::string_view beginning = sParentPath.substr(name_start);
        if (const auto identity = files_.IdentifyFolder(folder)) {
          records_.scanned_folders.try_emplace(folder, *identity);
        }
        FolderEntries entries;
        const bool read = files_.List(
            folder, [&] { return pass_.GoOn(); }, entries);
        if (!read) NoteUnreadable(is_root);
        for (const std::uint32_t number : Choose(entries.entries, beginning)) {
          if (!LetEventsRunIfDue()) return;
          const auto& [name, kind] = entries.entries[number];
          if (kind == EntryKind::kFile) {
            AddFile(name, pParentName, sParentPath, folder);
          } else {
            std::string path(sParentPath);
            path.append(name) += kNative.separator;
            FillFrom(name, path, false);
          }
        }
      });
}

bool Scan::LetEventsRunIfDue() {
  const bool due = state_.gFileCount % kFilesBetweenEvents == 0;
  return due ? pass_.LetEventsRun() : pass_.GoOn();
}

std::vector<std::uint32_t> Scan::Choose(std::vector<FolderEntries::Entry>& entries,
                                        std::string_view beginning) {
  const GoOn go_on = [&] { return pass_.GoOn(); };
  std::erase_if(entries, [&](const FolderEntries::Entry& entry) {
    if (state_.gCancelRequested) return true;
    const bool chosen = entry.name.starts_with(beginning) && Chooses(entry);
    // The turn of what is chosen comes when it is taken.
    const bool goes_on = chosen ? pass_.GoOn() : LetEventsRunIfDue();
    return !chosen || !goes_on;
  });
  const auto name_of = [&](std::size_t i) { return entries[i].name; };
  return SortedByText(entries.size(), name_of, AppendNaturalKey, true, go_on);
}

bool Scan::Chooses(const FolderEntries::Entry& entry) {
  if (entry.kind == EntryKind::kFile) {
    findings_.files = true;
    return Takes(entry.name);
  }
  if (entry.name.starts_with('.')) return false;
  if (!subfolders_) findings_.subfolders_passed_over = true;
  return subfolders_;
}

void Scan::NoteUnreadable(bool is_root) {
  const int problem = files_.Problem();
  if (problem == ECANCELED) return;
  if (!is_root) {
    findings_.subfolder_unreadable = true;
  } else {
    findings_.root_problem = problem != 0 ? problem : EIO;
  }
}

void Scan::AddFile(std::string_view name, std::string_view pParentName,
                   std::string_view sParentPath, std::string_view folder) {
  path_.assign(folder).append(name);
  const std::optional<FileFacts> facts = files_.Look(path_);
  if (!facts) return;  // gone since the folder was read
  ++state_.gFileCount;
  char digits[16];
  const std::to_chars_result end = std::to_chars(digits, std::end(digits), state_.gFileCount);
  state_.panes.paneTotal.assign(kTotal).append(digits, end.ptr).append(" files");
  records_.AddRecord(
      pParentName, sParentPath, name, SysToVBTime(pass_.services.clock, facts->modified_ns),
      static_cast<double>(facts->size), types_.GetFileType(name), facts->fingerprint);
}

bool Scan::Takes(std::string_view name) const {
  const bool included = include_all_ || include_.Matches(name);
  const bool excluded = !exclude_none_ && exclude_.Matches(name);
  return included && !excluded;
}

}  // namespace mScanCD
