#include "rename/row_places.h"

#include "common/path_text.h"
#include "filelist/row_paths.h"
#include "platform/text.h"
#include "rename/holders.h"
#include "settings/output_modes.h"

namespace {

/// Splits the path of a place behind its last separator.
struct Entry {
  std::string_view folder;
  std::string name;

  explicit Entry(const RowPlace& place) {
    const std::size_t end = place.folder.rfind(kNative.separator) + 1;
    folder = place.folder.substr(0, end);
    name.append(place.folder.substr(end)).append(place.name);
  }
};

}  // namespace

std::optional<RowPlace> PlaceOf(const Records& records, const FileRow& row, RowFile file) {
  const std::string& path = records.Path(row);
  if (file == RowFile::kResult) {
    if (row.RowTag != 1) return std::nullopt;
    return RowPlace{FolderAfterRun(path, records.NewPath(row)), row.newFileName};
  }
  const bool aside = row.RowTag != 1 && !row.Rollback().empty();
  const bool copied =
      row.RowTag == 1 && KeepsSource(row.mode) && row.sourceFileName != row.Rollback();
  if (!aside && !copied) return std::nullopt;
  return RowPlace{path, row.sourceFileName};
}

RowPlace FormerPlace(const Records& records, const FileRow& row) {
  return {records.Path(row), row.Rollback()};
}

bool IsOneEntry(FileSystem& files, std::string_view a, std::string_view b) {
  if (a == b) return true;
  const auto name = [](std::string_view path) {
    return path.substr(path.rfind(kNative.separator) + 1);
  };
  const std::string_view first = name(a), second = name(b);
  const bool may_be = text::IsAscii(first) && text::IsAscii(second)
                          ? text::EqualIgnoringCase(first, second)
                          : text::NameKey(first) == text::NameKey(second);
  return may_be && files.IsSameEntry(a, b);
}

std::size_t EntryKeys::operator()(const RowPlace& place) {
  const Entry entry(place);
  return HolderKey(FolderNumber(entry.folder), entry.name);
}

bool EntryKeys::AreOne(const RowPlace& a, const RowPlace& b, bool exact) {
  if (!exact) return IsOneEntry(files_, a.Path(), b.Path());
  const Entry first(a), second(b);
  return first.name == second.name && FolderNumber(first.folder) == FolderNumber(second.folder);
}

std::size_t EntryKeys::FolderNumber(std::string_view folder) {
  const auto [place, added] = numbers_.try_emplace(std::string(folder), numbers_.size());
  if (!added) return place->second;
  const auto identity = files_.IdentifyFolder(folder);
  if (!identity) return place->second;  // a folder by itself, whatever it may be
  const auto known = by_inode_.try_emplace({identity->device, identity->inode}, place->second);
  return place->second = known.first->second;
}
