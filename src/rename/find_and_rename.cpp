#include "rename/find_and_rename.h"

#include <optional>

#include "platform/text.h"
#include "trace/err_trace.h"

NameFreer::NameFreer(Records& records, FileSystem& files, Numbering& numbering)
    : records_(records),
      files_(files),
      numbering_(numbering),
      pending_(
          records,
          [&records](const FileRow& row) {
            return HolderKey(records.Path(row), row.sourceFileName);
          },
          [](const FileRow& row) { return !row.checked || row.RowTag == 1; }) {}

void NameFreer::FindAndRename(std::string_view pPath, std::string_view pName,
                              std::string& CorrectedNewName) {
  const bool pRollback = false;
  ErrTrace::inner<"Form1.FindAndRename(pPath,pName,pRollback,CorrectedNewName)">(
      ErrTrace::args(pPath, pName, pRollback, CorrectedNewName), [&] {
        const std::string candidate = numbering_.FreeNumberedName(pPath, pName);
        const std::optional<std::size_t> holder =
            pending_.FirstWith(HolderKey(pPath, pName), [&](const FileRow& row) {
              return row.checked && row.RowTag != 1 && records_.Path(row) == pPath &&
                     text::EqualIgnoringCase(pName, row.sourceFileName) &&
                     !text::EqualIgnoringCase(row.sourceFileName, row.newFileName);
            });
        if (holder) {
          MoveAside(*holder, candidate);
        } else {
          CorrectedNewName = candidate;
        }
      });
}

void NameFreer::MoveAside(std::size_t record, const std::string& candidate) {
  FileRow& row = records_[record];
  const std::string& path = records_.Path(row);
  const std::string from = path + row.sourceFileName;
  if (StaysInItsFolder(candidate) && files_.MoveFile(from, path + candidate, [] { return true; })) {
    numbering_.Freed(from);
  }
  row.KeepRollback();
  row.MoveAside(candidate);
  SourceNameChanged(record);
}
