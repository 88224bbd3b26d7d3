#include "rename/find_and_rename.h"

#include <functional>
#include <utility>

#include "settings/output_modes.h"
#include "trace/err_trace.h"

namespace {

constexpr RowFile kRowFiles[] = {RowFile::kResult, RowFile::kSource};

bool StillToRename(const FileRow& row) {
  return row.checked && row.RowTag != 1;
}

}  // namespace

std::string NameFreer::MoveAside(const RowPlace& place, Fingerprint& file) {
  const NumberTexts users{state_.numbering.gNumberLeft, state_.numbering.gNumberRight};
  std::string aside = MoveAside(place, users, file);
  if (!aside.empty() || users == kSafeNumberTexts) return aside;
  return MoveAside(place, kSafeNumberTexts, file);
}

std::string NameFreer::MoveAside(const RowPlace& place, const NumberTexts& texts,
                                 Fingerprint& file) {
  std::string candidate = numbering_.FreeAsideName(place.folder, place.name, texts);
  if (candidate.empty()) return {};
  const std::string from = place.Path();
  if (!files_.MoveKnown(from, std::string(place.folder).append(candidate), {}, file)) return {};
  numbering_.Freed(from);
  return candidate;
}

// The run.

std::optional<std::size_t> RunNameFreer::FindAndRename(std::string_view pPath,
                                                       std::string_view pName,
                                                       std::string& CorrectedNewName) {
  const bool pRollback = false;
  return ErrTrace::inner("Form1.FindAndRename(pPath,pName,pRollback,CorrectedNewName)",
                         ErrTrace::args(pPath, pName, pRollback, CorrectedNewName), [&] {
                           std::optional<std::size_t> holder = Holder(pPath, pName);
                           if (holder && MakeWay(*holder)) return holder;
                           CorrectedNewName = numbering_.FreeNumberedName(pPath, pName);
                           return std::optional<std::size_t>();
                         });
}

std::size_t RunNameFreer::Key(std::string_view path, std::string_view name) const {
  return HolderKey(std::hash<std::string_view>()(path), name);
}

std::optional<std::size_t> RunNameFreer::Holder(std::string_view pPath, std::string_view pName) {
  if (!holders_ && !MakeIndex()) return std::nullopt;
  const std::vector<std::size_t> candidates = holders_->Under(Key(pPath, pName));
  const std::string wanted = std::string(pPath).append(pName);
  for (const bool exact : {true, false}) {
    for (const std::size_t record : candidates) {
      const FileRow& row = records_[record];
      if (!StillToRename(row) || records_.Path(row) != pPath) continue;
      const bool holds = exact
                             ? row.sourceFileName == pName
                             : IsOneEntry(files_, wanted, records_.Path(row) + row.sourceFileName);
      if (holds && WantsAnotherName(row)) return record;
    }
  }
  return std::nullopt;
}

/// False when the pass is to end.
bool RunNameFreer::MakeIndex() {
  HolderIndex holders(records_.Count());
  for (std::size_t i = 0; i < records_.Count(); ++i) {
    if (!pass_.GoOn()) return false;
    const FileRow& row = records_[i];
    if (StillToRename(row)) holders.Add(Key(records_.Path(row), row.sourceFileName), i);
  }
  holders_ = std::move(holders);
  return true;
}

bool RunNameFreer::WantsAnotherName(const FileRow& row) {
  const std::string& path = records_.Path(row);
  return !IsOneEntry(files_, path + row.sourceFileName, path + row.newFileName);
}

bool RunNameFreer::MakeWay(std::size_t record) {
  FileRow& row = records_[record];
  std::string aside = MoveAside({records_.Path(row), row.sourceFileName}, row.fingerprint);
  if (aside.empty()) return false;
  row.KeepRollback();
  row.MoveAside(std::move(aside));
  holders_->Add(Key(records_.Path(row), row.sourceFileName), record);
  return true;
}

// The undo.

bool UndoNameFreer::FindAndRename(std::size_t asker) {
  const RowPlace wanted = FormerPlace(records_, records_[asker]);
  const std::string_view pPath = wanted.folder, pName = wanted.name, CorrectedNewName;
  const bool pRollback = true;
  return ErrTrace::inner("Form1.FindAndRename(pPath,pName,pRollback,CorrectedNewName)",
                         ErrTrace::args(pPath, pName, pRollback, CorrectedNewName),
                         [&] { return MoveHolderAside(asker, wanted); });
}

bool UndoNameFreer::MoveHolderAside(std::size_t asker, const RowPlace& wanted) {
  if (!holders_ && !MakeIndex()) return false;
  const std::vector<std::size_t> candidates = holders_->Under(keys_(wanted));
  for (const bool exact : {true, false}) {
    for (const std::size_t record : candidates) {
      if (record == asker) continue;
      for (const RowFile file : kRowFiles) {
        const auto place = PlaceOf(records_, records_[record], file);
        if (place && keys_.AreOne(*place, wanted, exact)) return MakeWay(record, file);
      }
    }
  }
  return false;
}

/// False when the pass is to end.
bool UndoNameFreer::MakeIndex() {
  HolderIndex holders(records_.Count());
  for (std::size_t i = 0; i < records_.Count(); ++i) {
    if (!pass_.GoOn()) return false;
    for (const RowFile file : kRowFiles) {
      if (const auto place = PlaceOf(records_, records_[i], file)) holders.Add(keys_(*place), i);
    }
  }
  holders_ = std::move(holders);
  return true;
}

bool UndoNameFreer::MakeWay(std::size_t record, RowFile file) {
  FileRow& row = records_[record];
  const bool is_copy = file == RowFile::kResult && KeepsSource(row.mode);
  Fingerprint copy = is_copy ? FingerprintOf(records_.MadeCopy(row).made) : 0;
  std::string aside = MoveAside(*PlaceOf(records_, row, file), is_copy ? copy : row.fingerprint);
  if (aside.empty()) return false;
  if (file == RowFile::kSource) {
    row.MoveAside(std::move(aside));
  } else {
    if (row.Temp().empty()) row.SetTemp(row.newFileName);
    row.newFileName = std::move(aside);
  }
  holders_->Add(keys_(*PlaceOf(records_, row, file)), record);
  return true;
}
