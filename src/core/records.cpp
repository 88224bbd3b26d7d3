#include "core/records.h"

#include "trace/err_trace.h"

Records::Records() {
  DeleteAll();
}

void Records::AddRecord(std::string_view pParentName, std::string_view pPatn,
                        std::string_view pFileName, FileDate pDate, double pSize,
                        std::string_view pType, Fingerprint file) {
  ErrTrace::inner("Form1.AddRecord(pParentName,pPatn,pFileName,pDate,pSize,pType)",
                  ErrTrace::args(pParentName, pPatn, pFileName, pDate, pSize, pType), [&] {
                    const std::uint32_t folder = FolderNumber(pParentName, pPatn);
                    const std::uint32_t type = TextNumber(pType);
                    std::string name(pFileName);  // with no room to spare
                    FileRow& row = rows_.Add();
                    row.sourceFileName = std::move(name);
                    row.size = pSize;
                    row.date = pDate;
                    row.folder = folder;
                    row.type = type;
                    row.fingerprint = file;
                  });
}

void Records::DeleteAll() {
  rows_.Clear();
  folders_.clear();
  folder_numbers_.clear();
  text_numbers_.clear();
  texts_.clear();
  TextNumber("");  // number 0 is the empty text
  made_copies_.clear();
  scanned_folders.clear();
  used_folders.clear();
  made_folders.clear();
}

void Records::SetMadeCopy(FileRow& row, const CopyIdentities& copied) {
  if (!HasCopy(row)) {
    made_copies_.push_back({{}, row.outcome});
    row.outcome = kCopy + static_cast<std::uint32_t>(made_copies_.size() - 1);
  }
  made_copies_[row.outcome - kCopy].both = copied;
}

/// A row whose copy was deleted keeps its place for the next one.
void Records::SetNewPath(FileRow& row, std::string_view path) {
  (HasCopy(row) ? made_copies_[row.outcome - kCopy].new_path : row.outcome) = TextNumber(path);
}

std::uint32_t Records::FolderNumber(std::string_view name, std::string_view path) {
  if (!rows_.Empty()) {  // files come folder by folder
    const Folder& last = folders_[rows_.Last().folder];
    if (last.path == path && last.name == name) return rows_.Last().folder;
  }
  std::string key(path);
  key += '\0';
  key += name;
  const auto [place, added] =
      folder_numbers_.try_emplace(std::move(key), static_cast<std::uint32_t>(folders_.size()));
  if (added) folders_.push_back({std::string(path), std::string(name)});
  return place->second;
}

std::uint32_t Records::TextNumber(std::string_view t) {
  if (!rows_.Empty() && *texts_[rows_.Last().type] == t) return rows_.Last().type;
  const auto [place, added] =
      text_numbers_.try_emplace(std::string(t), static_cast<std::uint32_t>(texts_.size()));
  if (added) texts_.push_back(&place->first);
  return place->second;
}
