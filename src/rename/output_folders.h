#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "core/pass.h"
#include "platform/files.h"
#include "rename/holders.h"
#include "rename/row_places.h"
#include "rename/run_output.h"

/// Expects of every folder that the rows name that it is still the one that was scanned, or used by
/// a run; see FileSystem::ExpectFolder.
/// Events run in between.
void ExpectKnownFolders(Pass& pass);

/// Which folder a run puts the row's file into, as the output choice has it.
std::string OutputText(const Records& records, const FileRow& row, const RunOutput& output);

/// The folders that a run puts files into: makes them where they are missing, notes which they are
/// and which of them it has made.
class OutputFolders {
 public:
  /// All for the length of one run.
  OutputFolders(Pass& pass, const RunOutput& output)
      : pass_(pass),
        output_(output),
        records_(pass.records),
        files_(pass.services.files),
        keys_(files_) {}
  OutputFolders(const OutputFolders&) = delete;
  OutputFolders& operator=(const OutputFolders&) = delete;

  struct Folder {
    std::string path;  ///< as the system resolves it; what stands behind the last separator stays
    int problem = 0;   ///< why nothing may be put there, else 0
    std::optional<FolderIdentity> identity;  ///< of what stands before the last separator
    int not_made = 0;  ///< why it could not be made, which is why a file there is not done
  };

  /// Where the run puts the row's file: its own folder when renaming in place, else the output
  /// folder or what corresponds to the row's below it. Made when the run asks for it first, and not
  /// when that is to end by then. Valid until the next call.
  const Folder& Of(const FileRow& row);

  /// The row takes part in undo from now on.
  void RowChanged(std::size_t record);

 private:
  bool LeadsThere(const std::string& text, const Folder& folder);
  Folder Prepare(const std::string& text);
  bool Make(const std::string& level);
  bool StandsInTheWay(const std::string& level, bool by_exact_name);
  bool MakeIndex();
  void Know(std::string_view path);

  Pass& pass_;
  const RunOutput& output_;
  Records& records_;
  FileSystem& files_;
  EntryKeys keys_;
  std::unordered_map<std::string, Folder> prepared_;  ///< by text
  Folder latest_;
  std::optional<HolderIndex> former_;  ///< rows by the names that undo gives back
  bool in_the_way_ = false;
  int not_made_ = 0;
};
