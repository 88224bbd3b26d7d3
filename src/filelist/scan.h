#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/pass.h"
#include "filelist/empty_list.h"
#include "filelist/file_type.h"
#include "filelist/masks.h"
#include "platform/clock.h"
#include "platform/files.h"
#include "settings/options.h"

namespace mScanCD {

/// Fills the records from a folder tree. Files become rows, folders never do; folders whose names
/// begin with a dot are passed over, links are not followed.
class Scan {
 public:
  Scan(Pass& pass, const SourceOptions& options, FileTypes& types);

  /// Adds the files of one folder and, depth first, of its subfolders: `sParentPath` with its
  /// closing separator, `pParentName` its last name. What a folder holds is taken in natural order,
  /// files and folders alike, whatever order the file system delivers. Counts in `gFileCount` and
  /// writes `paneTotal`. A folder that can't be read gives no rows and no message. Ends at once
  /// when the user cancels.
  ///
  /// Without its closing separator, the text is searched as the beginning of names in the folder
  /// before its last separator.
  void ShowDir3_FillPreview(std::string_view pParentName, std::string_view sParentPath);

  /// What was met so far.
  const ScanFindings& Findings() const { return findings_; }

 private:
  void FillFrom(std::string_view pParentName, std::string_view sParentPath, bool is_root);
  void NoteUnreadable(bool is_root);
  /// Called for each entry; false when the user cancels.
  bool LetEventsRunIfDue();
  /// Leaves only the entries to be taken; answers their numbers in natural order, none when the
  /// user cancelled.
  std::vector<std::uint32_t> Choose(std::vector<FolderEntries::Entry>& entries,
                                    std::string_view beginning);
  bool Chooses(const FolderEntries::Entry& entry);
  void AddFile(std::string_view name, std::string_view pParentName, std::string_view sParentPath,
               std::string_view folder);
  bool Takes(std::string_view name) const;

  const bool subfolders_;
  const bool include_all_;
  const bool exclude_none_;
  const MaskList include_;
  const MaskList exclude_;
  Pass& pass_;
  Records& records_;
  RunState& state_;
  FileSystem& files_;
  FileTypes& types_;
  ScanFindings findings_;
  std::string path_;  ///< of the file looked at; kept for its room
};

/// The date of a last-write time in the user's time zone; empty when it has none.
FileDate SysToVBTime(Clock& clock, std::int64_t modified_ns);

}  // namespace mScanCD
