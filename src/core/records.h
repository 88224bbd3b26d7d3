#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "core/file_row.h"
#include "core/row_pieces.h"
#include "platform/files.h"

/// The rows in the order in which the scan added them, and the texts that they share.
class Records {
 public:
  Records();

  /// Appends a checked, waiting row: name of its folder, path of its folder with the closing
  /// separator, file name, date, size in bytes, type name, and which file it is, if that is known.
  void AddRecord(std::string_view pParentName, std::string_view pPatn, std::string_view pFileName,
                 FileDate pDate, double pSize, std::string_view pType, Fingerprint file = 0);

  void DeleteAll();

  std::size_t Count() const { return rows_.Count(); }
  FileRow& operator[](std::size_t i) { return rows_[i]; }
  const FileRow& operator[](std::size_t i) const { return rows_[i]; }

  /// Item 0: the path of the row's folder.
  const std::string& Path(const FileRow& row) const { return folders_[row.folder].path; }
  /// Item 8: the name of the row's folder.
  const std::string& ParentName(const FileRow& row) const { return folders_[row.folder].name; }
  /// Item 2: the type name.
  const std::string& Type(const FileRow& row) const { return *texts_[row.type]; }
  /// Item 11: the output folder of a row that was copied or moved, else empty.
  const std::string& NewPath(const FileRow& row) const {
    return *texts_[HasCopy(row) ? made_copies_[row.outcome - kCopy].new_path : row.outcome];
  }
  void SetNewPath(FileRow& row, std::string_view path);

  /// Which file a run made as the copy of which, of a row that such a run has done.
  const CopyIdentities& MadeCopy(const FileRow& row) const {
    return made_copies_[row.outcome - kCopy].both;
  }
  void SetMadeCopy(FileRow& row, const CopyIdentities& copied);

  /// Which folder a path, with its closing separator, led to when the scan read it.
  std::unordered_map<std::string, FolderIdentity> scanned_folders;
  /// And which when a run first put a file there, or made it; for as long as undo may need it.
  std::unordered_map<std::string, FolderIdentity> used_folders;

  /// The folders that runs have made, in that order; undo takes them away when they are empty.
  struct MadeFolder {
    std::string path;  ///< without a closing separator
    FolderIdentity identity;
  };
  std::vector<MadeFolder> made_folders;

  std::size_t FolderCount() const { return folders_.size(); }
  std::size_t TextCount() const { return texts_.size(); }
  const std::string& FolderPath(std::uint32_t number) const { return folders_[number].path; }
  const std::string& TextAt(std::uint32_t number) const { return *texts_[number]; }

 private:
  struct Folder {
    std::string path;
    std::string name;
  };
  struct CopyMade {
    CopyIdentities both;
    std::uint32_t new_path = 0;
  };
  /// An outcome below it is the number of a text, item 11; from it on, that of a copy.
  static constexpr std::uint32_t kCopy = 0x8000'0000;
  static bool HasCopy(const FileRow& row) { return row.outcome >= kCopy; }
  std::uint32_t FolderNumber(std::string_view name, std::string_view path);
  std::uint32_t TextNumber(std::string_view t);

  RowPieces<FileRow> rows_;
  std::vector<Folder> folders_;
  std::unordered_map<std::string, std::uint32_t> folder_numbers_;  ///< by path, NUL, name
  std::unordered_map<std::string, std::uint32_t> text_numbers_;
  std::vector<CopyMade> made_copies_;
  std::vector<const std::string*> texts_;  ///< the keys of `text_numbers_`, which never move
};
