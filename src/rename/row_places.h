#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "core/records.h"
#include "platform/files.h"

/// Where a file of a row stands, or stood: a folder, which may end in the beginning of a name, and
/// the name behind it. Refers to texts of the row.
struct RowPlace {
  std::string_view folder;
  std::string_view name;

  std::string Path() const { return std::string(folder).append(name); }
};

/// Which of the files of a row that takes part in undo.
enum class RowFile : std::uint8_t {
  kResult,  ///< of a done row: the file under its new name, or the copy
  kSource,  ///< the file that was moved aside and not done, or of which a copy was made
};

/// Where such a file stands now; nothing when the row has none.
std::optional<RowPlace> PlaceOf(const Records& records, const FileRow& row, RowFile file);

/// Where undo brings the row's file back to.
RowPlace FormerPlace(const Records& records, const FileRow& row);

/// Whether both paths are one text or lead to one directory entry (`FileSystem::IsSameEntry`). The
/// file system is asked only about names that it may take for one.
bool IsOneEntry(FileSystem& files, std::string_view a, std::string_view b);

/// Keys for directory entries that are equal whenever two paths are one entry to the file system,
/// however their folders are written. Made for one pass: a folder is looked at once.
class EntryKeys {
 public:
  explicit EntryKeys(FileSystem& files) : files_(files) {}

  std::size_t operator()(const RowPlace& place);

  /// Whether both are one entry: by folder and `exact` name, be something there or not, or else as
  /// the file system has it.
  bool AreOne(const RowPlace& a, const RowPlace& b, bool exact);

 private:
  std::size_t FolderNumber(std::string_view folder);

  FileSystem& files_;
  std::unordered_map<std::string, std::size_t> numbers_;  ///< by the text of the folder
  std::map<std::pair<std::uint64_t, std::uint64_t>, std::size_t> by_inode_;
};
