#include "filelist/row_paths.h"

std::string PathOfRow(const Records& records, const FileRow& row) {
  const std::string& scanned = records.Path(row);
  if (row.RowTag != 1) return scanned + row.sourceFileName;
  return std::string(FolderAfterRun(scanned, records.NewPath(row))).append(row.newFileName);
}
