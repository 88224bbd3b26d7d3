#include "core/file_row.h"

#include <cstdio>
#include <utility>

std::string FileDate::Text() const {
  if (Empty()) return {};
  char buffer[48];
  std::snprintf(buffer, sizeof buffer, "%04d.%02d.%02d %02d:%02d:%02d", Year(), Month(), Day(),
                static_cast<int>(digits_ / 10'000 % 100), static_cast<int>(digits_ / 100 % 100),
                static_cast<int>(digits_ % 100));
  return buffer;
}

std::string_view MarkText(Mark mark) {
  switch (mark) {
    case Mark::kDone:
      return "Done";
    case Mark::kFailed:
      return "Failed";
    case Mark::kWaiting:
    case Mark::kEmptied:
      break;
  }
  return ">>";
}

std::string_view FileRow::Rollback() const {
  if (rollback_is_source_) return sourceFileName;
  return rare_ ? std::string_view(rare_->rollback) : "";
}

std::string_view FileRow::GivenName() const {
  const std::string_view former = Rollback();
  return former.empty() ? sourceFileName : former;
}

void FileRow::KeepRollback() {
  if (Rollback().empty()) rollback_is_source_ = true;
}

void FileRow::ClearRollback() {
  rollback_is_source_ = false;
  if (rare_) rare_->rollback.clear();
}

void FileRow::MoveAside(std::string temporary) {
  if (rollback_is_source_) {
    Rare().rollback = std::move(sourceFileName);
    rollback_is_source_ = false;
  }
  sourceFileName = std::move(temporary);
}

void FileRow::ShowRollbackName() {
  if (rollback_is_source_ || !rare_) return;
  sourceFileName = std::exchange(rare_->rollback, {});
  rollback_is_source_ = true;
}

void FileRow::ShowPlannedName() {
  if (!PlannedName().empty()) newFileName = std::exchange(rare_->planned, {});
}

void FileRow::ShowTemp() {
  if (!Temp().empty()) newFileName = std::exchange(rare_->temp, {});
}

FileRow::RareTexts& FileRow::Rare() {
  if (!rare_) rare_ = std::make_unique<RareTexts>();
  return *rare_;
}
