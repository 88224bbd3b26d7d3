#include "rename/find_and_rename.h"

#include "platform/text.h"
#include "trace/err_trace.h"

namespace {

bool StillToRename(const FileRow& row) {
  return row.checked && row.RowTag != 1;
}

}  // namespace

NameFreer::NameFreer(Pass pass, Records& records, FileSystem& files, Numbering& numbering)
    : pass_(pass),
      records_(records),
      files_(files),
      numbering_(numbering),
      holders_(
          records, [this](const FileRow& row) { return Key(records_.Path(row), HeldName(row)); },
          [pass](const FileRow& row) {
            return pass == Pass::kRun ? !StillToRename(row) : row.RowTag != 1;
          }) {}

void NameFreer::FindAndRename(std::string_view pPath, std::string_view pName,
                              std::string& CorrectedNewName) {
  const bool pRollback = pass_ != Pass::kRun;
  ErrTrace::inner<"Form1.FindAndRename(pPath,pName,pRollback,CorrectedNewName)">(
      ErrTrace::args(pPath, pName, pRollback, CorrectedNewName), [&] {
        const std::string candidate = numbering_.FreeNumberedName(pPath, pName);
        if (candidate.empty()) return;  // the user cancelled
        if (const std::optional<std::size_t> holder = Holder(pPath, pName)) {
          MoveAside(*holder, pPath, candidate);
        } else if (!pRollback) {
          CorrectedNewName = candidate;
        }
      });
}

std::string_view NameFreer::HeldName(const FileRow& row) const {
  return pass_ == Pass::kRun ? row.sourceFileName : row.newFileName;
}

std::size_t NameFreer::Key(std::string_view path, std::string_view name) const {
  return HolderKey(pass_ == Pass::kUndoAnyPath ? "" : path, name);
}

std::optional<std::size_t> NameFreer::Holder(std::string_view pPath, std::string_view pName) {
  return holders_.FirstWith(Key(pPath, pName),
                            [&](const FileRow& row) { return IsHolder(row, pPath, pName); });
}

bool NameFreer::IsHolder(const FileRow& row, std::string_view pPath, std::string_view pName) const {
  if (pass_ != Pass::kUndoAnyPath && records_.Path(row) != pPath) return false;
  if (!text::EqualIgnoringCase(pName, HeldName(row))) return false;
  if (pass_ != Pass::kRun) return row.RowTag == 1;
  return StillToRename(row) && !text::EqualIgnoringCase(row.sourceFileName, row.newFileName);
}

void NameFreer::MoveAside(std::size_t record, std::string_view folder,
                          const std::string& candidate) {
  FileRow& row = records_[record];
  const std::string from = std::string(folder).append(HeldName(row));
  const std::string to = std::string(folder).append(candidate);
  if (StaysInItsFolder(candidate) && files_.MoveFile(from, to, [] { return true; })) {
    numbering_.Freed(from);
  }
  if (pass_ == Pass::kRun) {
    row.KeepRollback();
    row.MoveAside(candidate);
  } else {
    row.SetTemp(row.newFileName);
    row.newFileName = candidate;
  }
  HeldNameChanged(record);
}
